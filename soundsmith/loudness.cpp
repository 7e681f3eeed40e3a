// The loudness meter and the limiter.
#include "loudness.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "filters.h"

namespace tamlo::soundsmith {

namespace {

constexpr double silence = -120.0;

double ToLufs(double mean_square) {
    return mean_square > 0.0 ? -0.691 + 10.0 * std::log10(mean_square) : silence;
}

// The mean squares of blocks of 0.4 s, a new one every 0.1 s.
std::vector<double> Blocks(const Sound& weighted) {
    const std::size_t length = FramesIn(0.4, weighted.rate), step = FramesIn(0.1, weighted.rate);
    std::vector<double> blocks;
    const std::size_t size = weighted.samples.size();
    std::size_t start = 0;
    do {
        const std::size_t end = std::min(start + length, size);
        double sum = 0.0;
        for (std::size_t i = start; i < end; ++i) sum += weighted.samples[i] * weighted.samples[i];
        blocks.push_back(sum / static_cast<double>(std::max<std::size_t>(end - start, 1)));
        start += step;
    } while (start + length <= size);
    return blocks;
}

// The mean of the blocks louder than `gate` LUFS; 0 when there is none.
double MeanAbove(const std::vector<double>& blocks, double gate) {
    double sum = 0.0, count = 0.0;
    for (const double block : blocks) {
        if (ToLufs(block) <= gate) continue;
        sum += block;
        count += 1.0;
    }
    return count > 0.0 ? sum / count : 0.0;
}

// The smallest gain that any peak within `reach` samples either way needs, smoothed over the same
// width: never above what a peak needs, and free of steps.
std::vector<double> LimiterGains(const Sound& sound, double ceiling) {
    const auto size = static_cast<std::ptrdiff_t>(sound.samples.size());
    const auto reach = static_cast<std::ptrdiff_t>(FramesIn(0.003, sound.rate));
    const auto index = [&](std::ptrdiff_t i) {
        return static_cast<std::size_t>(sound.loop ? ((i % size) + size) % size
                                                   : std::clamp<std::ptrdiff_t>(i, 0, size - 1));
    };
    std::vector<double> low(sound.samples.size(), 1.0), smooth(sound.samples.size());
    for (std::ptrdiff_t i = 0; i < size; ++i) {
        const double need = ceiling / std::max(std::abs(sound.samples[index(i)]), ceiling);
        if (need >= 1.0) continue;
        for (std::ptrdiff_t k = i - reach; k <= i + reach; ++k)
            low[index(k)] = std::min(low[index(k)], need);
    }
    double sum = 0.0;
    for (std::ptrdiff_t k = -reach; k <= reach; ++k) sum += low[index(k)];
    for (std::ptrdiff_t i = 0; i < size; ++i) {
        smooth[index(i)] = sum / static_cast<double>(2 * reach + 1);
        sum += low[index(i + reach + 1)] - low[index(i - reach)];
    }
    return smooth;
}

void Limit(Sound& sound, double ceiling) {
    if (Peak(sound) <= ceiling) return;
    const std::vector<double> gains = LimiterGains(sound, ceiling);
    for (std::size_t i = 0; i < gains.size(); ++i) sound.samples[i] *= gains[i];
}

}  // namespace

double Loudness(const Sound& sound) {
    Sound weighted = sound;
    Biquad::HighShelf(sound.rate, 1500.0, 4.0).Run(weighted);
    Biquad::HighPass(sound.rate, 38.0, 0.5).Run(weighted);
    const std::vector<double> blocks = Blocks(weighted);
    if (sound.Seconds() < 0.4) return ToLufs(blocks.front());
    const double absolute = MeanAbove(blocks, -70.0);
    return ToLufs(MeanAbove(blocks, ToLufs(absolute) - 10.0));
}

void LevelTo(Sound& sound, double lufs, double peak_db) {
    const double ceiling = FromDecibels(peak_db);
    for (int round = 0; round < 6; ++round) {
        const double now = Loudness(sound);
        if (now <= silence) return;
        Gain(sound, FromDecibels(lufs - now));
        Limit(sound, ceiling);
    }
}

}  // namespace tamlo::soundsmith
