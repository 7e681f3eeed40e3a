// From a voice to somebody at the door: silence cut away, breath and age, the doorway; the last one
// through an intercom.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "customers/cast.h"
#include "customers/speak.h"
#include "filters.h"
#include "recipes.h"
#include "vocabulary/room.h"

namespace tamlo::soundsmith {

namespace {

// Half outdoors: little comes back, and soon.
constexpr Room doorway{2.5, 0.25, 4000, 0.12};

/// The sound at another rate, not a lower one. A windowed sinc, so that an upsampled voice gets no
/// false hiss.
Sound Resample(const Sound& sound, int rate) {
    constexpr int reach = 24;
    const double step = static_cast<double>(sound.rate) / rate;
    const auto size = static_cast<std::ptrdiff_t>(sound.samples.size());
    Sound result{rate, {}, false};
    result.samples.resize(static_cast<std::size_t>(static_cast<double>(size) / step));
    for (std::size_t i = 0; i < result.samples.size(); ++i) {
        const double place = static_cast<double>(i) * step;
        const auto centre = static_cast<std::ptrdiff_t>(place);
        const std::ptrdiff_t from = std::max<std::ptrdiff_t>(0, centre - reach + 1);
        const std::ptrdiff_t to = std::min(size - 1, centre + reach);
        double sum = 0.0;
        for (std::ptrdiff_t k = from; k <= to; ++k) {
            const double x = std::numbers::pi * (place - static_cast<double>(k));
            const double window = 0.5 + 0.5 * std::cos(x / reach);
            const double sinc = std::abs(x) < 1e-9 ? 1.0 : std::sin(x) / x;
            sum += sinc * window * sound.samples[static_cast<std::size_t>(k)];
        }
        result.samples[i] = sum;
    }
    return result;
}

// Cuts away what is more than 38 dB below the loudest 10 ms at either end, but for a margin in
// which words may begin softly and die away.
Sound Trimmed(const Sound& sound) {
    const std::size_t width = FramesIn(0.01, sound.rate);
    std::vector<double> energies;
    for (std::size_t at = 0; at + width <= sound.samples.size(); at += width) {
        double energy = 0.0;
        for (std::size_t i = at; i < at + width; ++i) energy += sound.samples[i] * sound.samples[i];
        energies.push_back(energy);
    }
    if (energies.empty()) return sound;
    const double gate = *std::max_element(energies.begin(), energies.end()) * std::pow(10, -3.8);
    const auto loud = [&](double energy) { return energy > gate; };
    const auto first = std::find_if(energies.begin(), energies.end(), loud);
    const auto last = std::find_if(energies.rbegin(), energies.rend(), loud).base();
    const std::ptrdiff_t begin = std::max<std::ptrdiff_t>(0, first - energies.begin() - 2);
    const std::ptrdiff_t end =
        std::min(std::ssize(energies), std::distance(energies.begin(), last) + 4);
    const auto frames = static_cast<std::ptrdiff_t>(width);
    return {sound.rate,
            {sound.samples.begin() + begin * frames, sound.samples.begin() + end * frames},
            false};
}

// A small loudspeaker beside the door: no depth, no brilliance, a little overdriven.
void ThroughIntercom(Sound& sound) {
    HighPass(sound, 380.0);
    Boost(sound, 1300.0, 1.2, 6.0);
    NormalisePeak(sound);
    Saturate(sound, 2.5);
    HighPass(sound, 300.0);
    LowPass(sound, 3300.0);
}

/// The voice trembles about five times a second, in pitch and strength.
void Tremble(Sound& sound, double depth) {
    constexpr double hertz = 5.3, bend = 0.018, swell = 0.12;
    const double turn = 2.0 * std::numbers::pi * hertz / sound.rate;
    const std::vector<double> steady = sound.samples;
    for (std::size_t i = 0; i < steady.size(); ++i) {
        const double phase = turn * static_cast<double>(i);
        const double delay = depth * bend / turn * (1.0 + std::sin(phase));
        const double place = std::max(0.0, static_cast<double>(i) - delay);
        const auto whole = static_cast<std::size_t>(place);
        const double part = place - static_cast<double>(whole);
        const double next = steady[std::min(whole + 1, steady.size() - 1)];
        sound.samples[i] = (steady[whole] * (1.0 - part) + next * part) *
                           (1.0 + depth * swell * std::sin(phase + 1.0));
    }
}

/// Air that flows with the voice: noise above the low formants that swells as the voice does.
void Breathe(Sound& sound, double amount, Chance& chance) {
    constexpr double follow = 40.0;  // hertz; as quickly as syllables, not as the glottis
    Sound level = sound;
    for (double& sample : level.samples) sample = std::abs(sample);
    LowPass(level, follow);
    Sound air = Silence(sound.rate, sound.Seconds());
    for (double& sample : air.samples) sample = chance.Noise();
    HighPass(air, 1800.0);
    LowPass(air, 7000.0);
    for (std::size_t i = 0; i < std::min(air.samples.size(), sound.samples.size()); ++i)
        sound.samples[i] += amount * 0.8 * std::max(0.0, level.samples[i]) * air.samples[i];
}

/// The customer as heard close by.
Sound Person(const Customer& customer, int rate, std::string_view words) {
    Sound sound = Resample(Trimmed(Speak(customer, words)), rate);
    HighPass(sound, 60.0);
    Chance chance(customer.effect);
    if (customer.breath > 0) Breathe(sound, customer.breath, chance);
    if (customer.tremor > 0) Tremble(sound, customer.tremor);
    return sound;
}

Sound Greeting(Brief brief) {
    return AtTheDoor(*FindCustomer(brief.effect.name), brief.rate);
}

constexpr auto greetings = [] {
    std::array<RecipeEntry, cast.size()> recipes{};
    for (std::size_t i = 0; i < cast.size(); ++i) recipes[i] = {cast[i].effect, Greeting};
    return recipes;
}();

}  // namespace

Sound AtTheDoor(const Customer& customer, int rate, std::string_view words) {
    Sound sound = Person(customer, rate, words);
    if (customer.effect == cast.back().effect) {
        ThroughIntercom(sound);
    } else {
        SetLength(sound, sound.Seconds() + doorway.seconds * 0.5);
        AddRoom(sound, doorway);
    }
    return sound;
}

std::span<const RecipeEntry> CustomerRecipes() {
    return greetings;
}

}  // namespace tamlo::soundsmith
