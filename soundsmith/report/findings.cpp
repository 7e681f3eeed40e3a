// Examining one wave file.
#include "report/findings.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>

#include "customers/cast.h"
#include "loudness.h"
#include "wave_reader.h"

namespace tamlo::soundsmith {

namespace {

constexpr double lufs_tolerance = 2.0;
constexpr double highest_peak = -1.0;
constexpr double largest_dc = 1.0;
constexpr double roughest_seam = 1.5;

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("the file is missing");
    return {std::istreambuf_iterator<char>(in), {}};
}

void Measure(Findings& findings) {
    const Sound& sound = findings.sound;
    findings.lufs = Loudness(sound);
    findings.peak = PeakLevel(sound);
    findings.dc = DcShare(sound);
    findings.seam = SeamRoughness(sound);
    if (FindCustomer(findings.effect->name) != nullptr) findings.voice = MeasureVoice(sound);
}

void FindFaults(Findings& findings) {
    const auto fault = [&](bool is_one, const char* words) {
        if (is_one) findings.faults.emplace_back(words);
    };
    const Effect& effect = *findings.effect;
    fault(findings.sound.rate != effect.rate, "not at its rate");
    fault(findings.lufs > effect.lufs + lufs_tolerance, "too loud");
    fault(findings.lufs < effect.lufs - lufs_tolerance, "too quiet");
    fault(findings.peak > highest_peak, "peaks too high");
    fault(findings.dc > largest_dc, "direct current");
    fault(findings.seam > roughest_seam, "a seam to be heard");
    fault(FindCustomer(effect.name) != nullptr && !IsSpeech(findings.voice), "not like speech");
}

// The moment of the loudest tenth of a second, in seconds.
double LoudestMoment(const Sound& sound) {
    const std::size_t width = std::max<std::size_t>(1, FramesIn(0.1, sound.rate));
    double best = -1.0;
    std::size_t best_at = 0;
    for (std::size_t at = 0; at < sound.samples.size(); at += width) {
        double energy = 0.0;
        for (std::size_t i = at; i < std::min(at + width, sound.samples.size()); ++i)
            energy += sound.samples[i] * sound.samples[i];
        if (energy <= best) continue;
        best = energy;
        best_at = at;
    }
    return static_cast<double>(best_at) / sound.rate;
}

// Half the energy of the sound lies below this many hertz.
double MiddlePitch(const Sound& sound) {
    constexpr std::size_t size = 2048;
    std::vector<double> sums(size / 2 + 1);
    double total = 0.0;
    for (std::size_t at = 0; at < sound.samples.size(); at += size / 2) {
        const auto powers = PowerSpectrum(sound, static_cast<std::ptrdiff_t>(at), size);
        for (std::size_t i = 0; i < sums.size(); ++i) {
            sums[i] += powers[i];
            total += powers[i];
        }
    }
    double below = 0.0;
    std::size_t line = 0;
    while (line + 1 < sums.size() && below + sums[line] < 0.5 * total) below += sums[line++];
    return static_cast<double>(line) * sound.rate / size;
}

}  // namespace

std::string Findings::Role() const {
    const Customer* customer = FindCustomer(effect->name);
    if (customer == nullptr) return std::string(effect->role);
    return std::string(effect->role) + ", " + std::string(customer->who) + ": \"" +
           std::string(customer->greeting) + "\"";
}

std::string Findings::InWords() const {
    std::ostringstream words;
    words << std::fixed << std::setprecision(1) << "loudest at " << LoudestMoment(sound)
          << " seconds of " << sound.Seconds() << ", half of it below "
          << std::lround(MiddlePitch(sound) / 10.0) * 10 << " hertz";
    return words.str();
}

Findings Examine(const std::filesystem::path& set, const Effect& effect) {
    Findings findings;
    findings.effect = &effect;
    try {
        findings.sound = ReadWave(ReadFile(set / (std::string(effect.name) + ".wav")));
        findings.sound.loop = effect.loop;
        Measure(findings);
        FindFaults(findings);
    } catch (const std::exception& error) {
        findings.faults.emplace_back(error.what());
    }
    return findings;
}

}  // namespace tamlo::soundsmith
