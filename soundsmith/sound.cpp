// Mixing, levels, fades and changes of rate.
#include "sound.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace tamlo::soundsmith {

namespace {

using Index = std::ptrdiff_t;

Index Size(const Sound& sound) {
    return static_cast<Index>(sound.samples.size());
}

// The sample at `index`, round the seam of a loop; silence outside any other sound.
double At(const Sound& sound, Index index) {
    const Index size = Size(sound);
    if (sound.loop && size > 0) index = ((index % size) + size) % size;
    return index >= 0 && index < size ? sound.samples[static_cast<std::size_t>(index)] : 0.0;
}

void AddSample(Sound& onto, Index index, double value) {
    const Index size = Size(onto);
    if (onto.loop && size > 0) index = ((index % size) + size) % size;
    if (index >= 0 && index < size) onto.samples[static_cast<std::size_t>(index)] += value;
}

// A low-pass that keeps 92 % of the band left after taking every `factor`-th sample.
std::vector<double> DecimationFilter(int factor) {
    const int half = 32 * factor;
    const double cut = 0.46 / factor;  // of the sampling rate
    std::vector<double> taps;
    double sum = 0.0;
    for (int i = -half; i <= half; ++i) {
        const double x = 2.0 * std::numbers::pi * cut * i;
        const double window = 0.5 + 0.5 * std::cos(std::numbers::pi * i / (half + 1));
        taps.push_back((i == 0 ? 1.0 : std::sin(x) / x) * window);
        sum += taps.back();
    }
    for (double& tap : taps) tap /= sum;
    return taps;
}

}  // namespace

double FromDecibels(double decibels) {
    return std::pow(10.0, decibels / 20.0);
}

double ToDecibels(double factor) {
    return 20.0 * std::log10(std::max(factor, 1e-12));
}

std::size_t FramesIn(double seconds, int rate) {
    return static_cast<std::size_t>(std::max(0.0, std::round(seconds * rate)));
}

Sound Silence(int rate, double seconds) {
    return {rate, std::vector<double>(FramesIn(seconds, rate)), false};
}

void MixAt(Sound& onto, const Sound& what, double at_seconds, double gain) {
    if (onto.rate != what.rate) throw std::logic_error("mixing sounds of different rates");
    const Index size = Size(onto);
    if (size == 0) return;
    Index place = static_cast<Index>(std::lround(at_seconds * onto.rate));
    if (onto.loop) place = ((place % size) + size) % size;
    for (const double sample : what.samples) {
        if (place >= 0 && place < size)
            onto.samples[static_cast<std::size_t>(place)] += gain * sample;
        if (++place == size && onto.loop) place = 0;
    }
}

void AddImpulse(Sound& onto, double at_seconds, double value) {
    const double place = at_seconds * onto.rate;
    const double whole = std::floor(place);
    AddSample(onto, static_cast<Index>(whole), value * (1.0 - (place - whole)));
    AddSample(onto, static_cast<Index>(whole) + 1, value * (place - whole));
}

void Gain(Sound& sound, double factor) {
    for (double& sample : sound.samples) sample *= factor;
}

void FadeIn(Sound& sound, double seconds) {
    const std::size_t length = std::min(FramesIn(seconds, sound.rate), sound.samples.size());
    for (std::size_t i = 0; i < length; ++i)
        sound.samples[i] *= static_cast<double>(i) / static_cast<double>(length);
}

void FadeOut(Sound& sound, double seconds) {
    const std::size_t size = sound.samples.size();
    const std::size_t length = std::min(FramesIn(seconds, sound.rate), size);
    for (std::size_t i = 0; i < length; ++i)
        sound.samples[size - 1 - i] *= static_cast<double>(i) / static_cast<double>(length);
}

void SetLength(Sound& sound, double seconds) {
    sound.samples.resize(FramesIn(seconds, sound.rate));
}

Sound Append(Sound first, const Sound& second) {
    if (first.rate != second.rate) throw std::logic_error("joining sounds of different rates");
    first.samples.insert(first.samples.end(), second.samples.begin(), second.samples.end());
    return first;
}

double Peak(const Sound& sound) {
    double peak = 0.0;
    for (double sample : sound.samples) peak = std::max(peak, std::abs(sample));
    return peak;
}

void NormalisePeak(Sound& sound, double peak) {
    const double now = Peak(sound);
    if (now > 0.0) Gain(sound, peak / now);
}

void Saturate(Sound& sound, double drive) {
    for (double& sample : sound.samples) sample = std::tanh(sample * drive) / std::tanh(drive);
}

Sound AtSpeed(const Sound& sound, double factor) {
    Sound result{sound.rate, {}, sound.loop};
    const double length = static_cast<double>(sound.samples.size()) / factor;
    result.samples.resize(static_cast<std::size_t>(length));
    for (std::size_t i = 0; i < result.samples.size(); ++i) {
        const double place = static_cast<double>(i) * factor;
        const Index whole = static_cast<Index>(place);
        const double part = place - static_cast<double>(whole);
        // Four points and a cubic between the middle two: exact enough below a third of the rate.
        const double a = At(sound, whole - 1), b = At(sound, whole);
        const double c = At(sound, whole + 1), d = At(sound, whole + 2);
        result.samples[i] =
            b + 0.5 * part *
                    (c - a + part * (2 * a - 5 * b + 4 * c - d + part * (3 * (b - c) + d - a)));
    }
    return result;
}

Sound Decimate(const Sound& sound, int factor) {
    if (factor == 1) return sound;
    const std::vector<double> taps = DecimationFilter(factor);
    const Index half = static_cast<Index>(taps.size() / 2);
    Sound result{sound.rate / factor, {}, sound.loop};
    result.samples.resize(sound.samples.size() / static_cast<std::size_t>(factor));
    for (std::size_t i = 0; i < result.samples.size(); ++i) {
        const Index centre = static_cast<Index>(i) * factor;
        double sum = 0.0;
        for (Index k = -half; k <= half; ++k)
            sum += taps[static_cast<std::size_t>(k + half)] * At(sound, centre + k);
        result.samples[i] = sum;
    }
    return result;
}

}  // namespace tamlo::soundsmith
