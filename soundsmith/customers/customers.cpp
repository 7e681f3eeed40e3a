// From an engine's words to somebody at the door: the size of the person, silence cut away, the
// last one heard through an intercom.
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
constexpr Room kDoorway{2.5, 0.25, 4000, 0.12};

// The sound at another rate, played at `speed` (together they must not take samples further apart
// than `sound` has them, or high tones would fold). A windowed sinc, so that an upsampled voice
// gets no false hiss.
Sound Resample(const Sound& sound, int rate, double speed) {
    constexpr int kReach = 24;
    const double step = speed * sound.rate / rate;
    const auto size = static_cast<std::ptrdiff_t>(sound.samples.size());
    Sound result{rate, {}, false};
    result.samples.resize(static_cast<std::size_t>(static_cast<double>(size) / step));
    for (std::size_t i = 0; i < result.samples.size(); ++i) {
        const double place = static_cast<double>(i) * step;
        const auto centre = static_cast<std::ptrdiff_t>(place);
        const std::ptrdiff_t from = std::max<std::ptrdiff_t>(0, centre - kReach + 1);
        const std::ptrdiff_t to = std::min(size - 1, centre + kReach);
        double sum = 0.0;
        for (std::ptrdiff_t k = from; k <= to; ++k) {
            const double x = std::numbers::pi * (place - static_cast<double>(k));
            const double window = 0.5 + 0.5 * std::cos(x / kReach);
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

Sound Greeting(Brief brief) {
    const Customer& customer = *FindCustomer(brief.effect.name);
    Sound sound = Resample(Trimmed(Speak(customer)), brief.rate, customer.size);
    HighPass(sound, 60.0);
    if (brief.effect.name == kCast.back().effect) {
        ThroughIntercom(sound);
    } else {
        SetLength(sound, sound.Seconds() + kDoorway.seconds * 0.5);
        AddRoom(sound, kDoorway);
    }
    return sound;
}

constexpr auto kRecipes = [] {
    std::array<RecipeEntry, kCast.size()> recipes{};
    for (std::size_t i = 0; i < kCast.size(); ++i) recipes[i] = {kCast[i].effect, Greeting};
    return recipes;
}();

}  // namespace

std::span<const RecipeEntry> CustomerRecipes() {
    return kRecipes;
}

}  // namespace tamlo::soundsmith
