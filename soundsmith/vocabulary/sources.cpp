// Noise and additive tones.
#include "sources.h"

#include <cmath>
#include <numbers>

#include "filters.h"

namespace tamlo::soundsmith {

Sound WhiteNoise(int rate, double seconds, Chance& chance) {
    Sound sound = Silence(rate, seconds);
    for (double& sample : sound.samples) sample = chance.Noise();
    return sound;
}

Sound PinkNoise(int rate, double seconds, Chance& chance) {
    // Three one-pole filters, each an octave or two wide, make a slope of 3 dB within 1 dB.
    Sound sound = Silence(rate, seconds);
    double slow = 0.0, middle = 0.0, fast = 0.0;
    for (double& sample : sound.samples) {
        const double white = chance.Noise();
        slow = 0.99765 * slow + white * 0.0990460;
        middle = 0.96300 * middle + white * 0.2965164;
        fast = 0.57000 * fast + white * 1.0526913;
        sample = 0.2 * (slow + middle + fast + white * 0.1848);
    }
    return sound;
}

Sound NoiseBurst(int rate, double rise, double fall, double low_hz, double high_hz,
                 Chance& chance) {
    Sound sound = WhiteNoise(rate, rise + fall, chance);
    HighPass(sound, low_hz);
    LowPass(sound, high_hz);
    for (std::size_t i = 0; i < sound.samples.size(); ++i)
        sound.samples[i] *= Struck(static_cast<double>(i) / rate, rise, fall);
    return sound;
}

Sound NoiseBand(const Sound& like, double low_hz, double high_hz, Chance& chance) {
    Sound sound = WhiteNoise(like.rate, like.Seconds(), chance);
    sound.samples.resize(like.samples.size());
    sound.loop = like.loop;
    HighPass(sound, low_hz);
    LowPass(sound, high_hz);
    return sound;
}

Timbre FallingHarmonics(int count, double decibels) {
    Timbre timbre;
    for (int i = 1; i <= count; ++i)
        timbre.push_back(FromDecibels(decibels * std::log2(static_cast<double>(i))));
    return timbre;
}

Sound Tone(int rate, double seconds, const Curve& hz, const Timbre& timbre) {
    Sound sound = Silence(rate, seconds);
    double turns = 0.0;
    for (std::size_t i = 0; i < sound.samples.size(); ++i) {
        const double pitch = hz(static_cast<double>(i) / rate);
        const double angle = 2.0 * std::numbers::pi * turns;
        // Each harmonic's sine follows from the two below it, which saves most of the time.
        const double twice_cosine = 2.0 * std::cos(angle);
        double below = 0.0, sine = std::sin(angle), sum = 0.0, top = pitch;
        for (const double level : timbre) {
            if (top >= 0.45 * rate) break;
            sum += level * sine;
            const double above = twice_cosine * sine - below;
            below = sine;
            sine = above;
            top += pitch;
        }
        sound.samples[i] = sum;
        turns += pitch / rate;
        turns -= std::floor(turns);
    }
    return sound;
}

Curve Vibrato(double hz, double part, double per_second, double seconds) {
    std::vector<Curve::Point> points;
    for (double t = 0.0; t <= seconds; t += 0.02)
        points.push_back(
            {t, hz * (1.0 + part * std::sin(2.0 * std::numbers::pi * per_second * t))});
    return Curve(points);
}

}  // namespace tamlo::soundsmith
