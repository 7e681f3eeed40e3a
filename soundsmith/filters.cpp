// Second-order sections after the common audio cookbook formulas, and their use on whole sounds.
#include "filters.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tamlo::soundsmith {

namespace {

struct Angle {
    double cosine, alpha;

    Angle(int rate, double hz, double q) {
        const double w = 2.0 * std::numbers::pi * std::clamp(hz / rate, 1e-5, 0.49);
        cosine = std::cos(w);
        alpha = std::sin(w) / (2.0 * q);
    }
};

}  // namespace

Biquad Biquad::LowPass(int rate, double hz, double q) {
    const auto [c, a] = Angle(rate, hz, q);
    return {(1 - c) / 2, 1 - c, (1 - c) / 2, 1 + a, -2 * c, 1 - a};
}

Biquad Biquad::HighPass(int rate, double hz, double q) {
    const auto [c, a] = Angle(rate, hz, q);
    return {(1 + c) / 2, -(1 + c), (1 + c) / 2, 1 + a, -2 * c, 1 - a};
}

Biquad Biquad::BandPass(int rate, double hz, double q) {
    const auto [c, a] = Angle(rate, hz, q);
    return {a, 0, -a, 1 + a, -2 * c, 1 - a};
}

Biquad Biquad::Peaking(int rate, double hz, double q, double decibels) {
    const auto [c, a] = Angle(rate, hz, q);
    const double g = std::pow(10.0, decibels / 40.0);
    return {1 + a * g, -2 * c, 1 - a * g, 1 + a / g, -2 * c, 1 - a / g};
}

Biquad Biquad::HighShelf(int rate, double hz, double decibels) {
    const auto [c, a] = Angle(rate, hz, 0.707);
    const double g = std::pow(10.0, decibels / 40.0);
    const double s = 2 * std::sqrt(g) * a;
    return {g * ((g + 1) + (g - 1) * c + s), -2 * g * ((g - 1) + (g + 1) * c),
            g * ((g + 1) + (g - 1) * c - s), (g + 1) - (g - 1) * c + s,
            2 * ((g - 1) - (g + 1) * c),     (g + 1) - (g - 1) * c - s};
}

void Biquad::Run(Sound& sound) {
    z1_ = z2_ = 0.0;
    if (sound.loop)
        for (const double sample : sound.samples) Step(sample);
    for (double& sample : sound.samples) sample = Step(sample);
}

void LowPass(Sound& sound, double hz, double q) {
    Biquad::LowPass(sound.rate, hz, q).Run(sound);
}

void HighPass(Sound& sound, double hz, double q) {
    Biquad::HighPass(sound.rate, hz, q).Run(sound);
}

void BandPass(Sound& sound, double hz, double q) {
    Biquad::BandPass(sound.rate, hz, q).Run(sound);
}

void Boost(Sound& sound, double hz, double q, double decibels) {
    Biquad::Peaking(sound.rate, hz, q, decibels).Run(sound);
}

void MovingLowPass(Sound& sound, const Curve& hz) {
    // Two one-pole steps: they take a moving corner without any click.
    double first = 0.0, second = 0.0;
    for (int pass = sound.loop ? 0 : 1; pass < 2; ++pass) {
        double coefficient = 0.0;
        for (std::size_t i = 0; i < sound.samples.size(); ++i) {
            if (i % 32 == 0) {
                const double corner = hz(static_cast<double>(i) / sound.rate);
                coefficient = 1.0 - std::exp(-2.0 * std::numbers::pi * corner / sound.rate);
            }
            first += coefficient * (sound.samples[i] - first);
            second += coefficient * (first - second);
            if (pass == 1) sound.samples[i] = second;
        }
    }
}

Sound Resonate(const Sound& sound, const std::vector<Resonance>& resonances, double direct) {
    Sound result = sound;
    Gain(result, direct);
    for (const Resonance& resonance : resonances) {
        Sound band = sound;
        BandPass(band, resonance.hz, resonance.q);
        MixAt(result, band, 0.0, resonance.gain);
    }
    return result;
}

Sound Resonate(const Sound& sound, std::initializer_list<Resonance> resonances, double direct) {
    return Resonate(sound, std::vector<Resonance>(resonances), direct);
}

void Shape(Sound& sound, const Curve& level) {
    for (std::size_t i = 0; i < sound.samples.size(); ++i)
        sound.samples[i] *= level(static_cast<double>(i) / sound.rate);
}

}  // namespace tamlo::soundsmith
