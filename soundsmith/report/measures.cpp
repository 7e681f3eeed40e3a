// The measures themselves.
#include "report/measures.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tamlo::soundsmith {

namespace {

constexpr double lowest_pitch = 60.0;
constexpr double highest_pitch = 420.0;
constexpr double step_seconds = 0.01;
constexpr double loud_within = 25.0;   // dB of the loudest step
constexpr double voiced_above = 0.6;   // likeness of one period to the next, 0 to 1
constexpr double movement_span = 0.1;  // seconds
constexpr std::size_t colour_size = 1024;

double Bend(const Sound& sound, std::size_t at) {
    const std::size_t size = sound.samples.size();
    return std::abs(sound.samples[at % size] - 2.0 * sound.samples[(at + 1) % size] +
                    sound.samples[(at + 2) % size]);
}

// How much the sound from `start` on is like itself `lag` samples later, over `width` samples.
double Likeness(const Sound& sound, std::size_t start, std::size_t lag, std::size_t width) {
    double product = 0.0, here = 0.0, there = 0.0;
    for (std::size_t i = start; i < start + width; ++i) {
        const double a = sound.samples[i], b = sound.samples[i + lag];
        product += a * b;
        here += a * a;
        there += b * b;
    }
    return product / std::sqrt(here * there + 1e-20);
}

// The pitch in the two longest periods from `start` on; 0 where there is none. Of nearly equal
// likenesses the shortest lag counts: a wave is also like itself two periods on.
double PitchAt(const Sound& sound, std::size_t start) {
    const auto shortest = static_cast<std::size_t>(sound.rate / highest_pitch);
    const auto longest = static_cast<std::size_t>(sound.rate / lowest_pitch);
    if (start + 2 * longest > sound.samples.size()) return 0.0;
    std::vector<double> likeness(longest + 1);
    double best = 0.0;
    for (std::size_t lag = shortest; lag <= longest; ++lag) {
        likeness[lag] = Likeness(sound, start, lag, longest);
        best = std::max(best, likeness[lag]);
    }
    if (best < voiced_above) return 0.0;
    for (std::size_t lag = shortest + 1; lag < longest; ++lag) {
        const bool is_top = likeness[lag] >= likeness[lag - 1] && likeness[lag] > likeness[lag + 1];
        if (is_top && likeness[lag] > 0.9 * best)
            return static_cast<double>(sound.rate) / static_cast<double>(lag);
    }
    return 0.0;
}

// The starts of the steps that are loud enough to count.
std::vector<std::size_t> LoudSteps(const Sound& sound) {
    const std::size_t width = FramesIn(step_seconds, sound.rate);
    std::vector<double> levels;
    for (std::size_t at = 0; at + width <= sound.samples.size(); at += width) {
        double energy = 1e-20;
        for (std::size_t i = at; i < at + width; ++i) energy += sound.samples[i] * sound.samples[i];
        levels.push_back(10.0 * std::log10(energy));
    }
    std::vector<std::size_t> steps;
    if (levels.empty()) return steps;
    const double gate = *std::max_element(levels.begin(), levels.end()) - loud_within;
    for (std::size_t i = 0; i < levels.size(); ++i)
        if (levels[i] > gate) steps.push_back(i * width);
    return steps;
}

double Median(std::vector<double> values) {
    if (values.empty()) return 0.0;
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace

double PeakLevel(const Sound& sound) {
    return ToDecibels(Peak(sound));
}

double DcShare(const Sound& sound) {
    if (sound.samples.empty()) return 0.0;
    double sum = 0.0;
    for (const double sample : sound.samples) sum += sample;
    return 100.0 * std::abs(sum) / static_cast<double>(sound.samples.size());
}

double SeamRoughness(const Sound& sound) {
    const std::size_t size = sound.samples.size();
    const std::size_t reach = FramesIn(0.01, sound.rate);
    if (!sound.loop || size < 3 * reach) return 0.0;
    const double seam = std::max(Bend(sound, size - 2), Bend(sound, size - 1));
    double around = 1.0 / 32768.0;  // one step of the samples
    for (std::size_t i = 0; i < reach; ++i)
        around = std::max({around, Bend(sound, i), Bend(sound, size - 3 - i)});
    return seam / around;
}

VoiceMeasures MeasureVoice(const Sound& sound) {
    VoiceMeasures voice{};
    const std::vector<std::size_t> steps = LoudSteps(sound);
    const auto span = static_cast<std::ptrdiff_t>(FramesIn(movement_span, sound.rate));
    std::vector<double> pitches, powers(colour_size / 2 + 1), movements;
    for (const std::size_t step : steps) {
        const double pitch = PitchAt(sound, step);
        if (pitch > 0.0) pitches.push_back(pitch);
        const auto centre = static_cast<std::ptrdiff_t>(step);
        const std::vector<double> now = PowerSpectrum(sound, centre, colour_size);
        for (std::size_t i = 0; i < powers.size(); ++i) powers[i] += now[i];
        if (centre + span >= std::ssize(sound.samples)) continue;
        const std::vector<double> next = PowerSpectrum(sound, centre + span, colour_size);
        movements.push_back(Distance(ColourOf(now, sound.rate), ColourOf(next, sound.rate)));
    }
    if (steps.empty()) return voice;
    voice.pitch = Median(pitches);
    voice.voiced = static_cast<double>(pitches.size()) / static_cast<double>(steps.size());
    for (const double movement : movements)
        voice.movement += movement / static_cast<double>(movements.size());
    voice.colour = ColourOf(powers, sound.rate);
    return voice;
}

bool IsSpeech(const VoiceMeasures& voice) {
    const bool has_voice = voice.pitch > 60.0 && voice.pitch < 340.0 && voice.voiced > 0.5;
    return has_voice && voice.movement > 8.7;
}

}  // namespace tamlo::soundsmith
