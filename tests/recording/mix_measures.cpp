#include "recording/mix_measures.h"

#include <ebur128.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "audio/mixing/source.h"

namespace tamlo {
namespace {

constexpr double silence = -120;

struct Destroy {
    void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
};
using Meter = std::unique_ptr<ebur128_state, Destroy>;

Meter Measured(std::span<const float> stereo, int mode) {
    Meter meter(ebur128_init(2, stream_rate, mode));
    ebur128_add_frames_float(meter.get(), stereo.data(), stereo.size() / 2);
    return meter;
}

double Power(std::span<const float> stereo, std::size_t ear) {
    double sum = 0;
    for (std::size_t i = ear; i < stereo.size(); i += 2) sum += stereo[i] * stereo[i];
    return sum;
}

}  // namespace

std::span<const float> PartOf(std::span<const float> stereo, Span span) {
    const std::size_t frames = stereo.size() / 2;
    const auto frame = [&](double seconds) {
        return std::min(frames, static_cast<std::size_t>(std::max(0.0, seconds) * stream_rate));
    };
    const std::size_t begin = frame(span.begin), end = std::max(begin, frame(span.end));
    return stereo.subspan(2 * begin, 2 * (end - begin));
}

double LoudnessOf(std::span<const float> stereo) {
    double lufs = silence;
    ebur128_loudness_global(Measured(stereo, EBUR128_MODE_I).get(), &lufs);
    return std::max(lufs, silence);
}

double TruePeak(std::span<const float> stereo) {
    const Meter meter = Measured(stereo, EBUR128_MODE_TRUE_PEAK);
    double highest = 0;
    for (unsigned ear = 0; ear < 2; ++ear) {
        double peak = 0;
        ebur128_true_peak(meter.get(), ear, &peak);
        highest = std::max(highest, peak);
    }
    return 20 * std::log10(std::max(highest, 1e-6));
}

double LoudestSecond(std::span<const float> stereo) {
    const std::size_t second = std::min<std::size_t>(2 * stream_rate, stereo.size());
    constexpr std::size_t step = 2 * stream_rate / 10;
    double loudest = silence;
    for (std::size_t at = 0; at + second <= stereo.size(); at += step)
        loudest = std::max(loudest, LoudnessOf(stereo.subspan(at, second)));
    return loudest;
}

double RightAboveLeft(std::span<const float> stereo) {
    const double left = Power(stereo, 0), right = Power(stereo, 1);
    return left == 0 || right == 0 ? 0 : 10 * std::log10(right / left);
}

float PeakOf(std::span<const float> stereo) {
    float highest = 0;
    for (const float sample : stereo) highest = std::max(highest, std::abs(sample));
    return highest;
}

std::vector<double> Clicks(std::span<const float> stereo) {
    constexpr std::size_t block = stream_rate / 1000, around = 100;
    constexpr float times = 8, smallest = 0.02F;
    const std::size_t frames = stereo.size() / 2;
    std::vector<float> bends(frames / block + 1);  // the largest of each block, of both ears
    for (std::size_t i = 2; i + 2 < stereo.size(); ++i)
        bends[i / 2 / block] =
            std::max(bends[i / 2 / block], std::abs(stereo[i - 2] - 2 * stereo[i] + stereo[i + 2]));
    std::vector<double> found;
    for (std::size_t i = around; i + around < bends.size(); ++i) {
        if (bends[i] < smallest) continue;
        const auto largest = [&](std::size_t from, std::size_t to) {
            return *std::max_element(bends.begin() + static_cast<std::ptrdiff_t>(from),
                                     bends.begin() + static_cast<std::ptrdiff_t>(to));
        };
        if (bends[i] > times * largest(i - around, i - 1) &&
            bends[i] > times * largest(i + 2, i + around))
            found.push_back(static_cast<double>(i * block) / stream_rate);
    }
    return found;
}

}  // namespace tamlo
