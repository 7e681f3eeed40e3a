// Modal synthesis.
#include "bodies.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "sources.h"

namespace tamlo::soundsmith {

namespace {

void Ring(Sound& onto, const Mode& mode) {
    const double turn = 2.0 * std::numbers::pi * mode.hz / onto.rate;
    const double loss = std::exp(-6.9 / (mode.fall * onto.rate));
    const std::size_t length = std::min(onto.samples.size(), FramesIn(mode.fall, onto.rate));
    double level = mode.level;
    for (std::size_t i = 0; i < length; ++i) {
        onto.samples[i] += level * std::sin(turn * static_cast<double>(i));
        level *= loss;
    }
}

}  // namespace

Sound Hit(const Body& body, int rate, double strength, Chance& chance) {
    double longest = body.click.fall;
    for (const Mode& mode : body.modes) longest = std::max(longest, mode.fall);
    Sound sound = Silence(rate, longest + 0.002);
    const double first = body.modes.empty() ? 1000.0 : body.modes.front().hz;
    for (Mode mode : body.modes) {
        mode.level *=
            strength * std::pow(strength, 0.5 * std::log2(std::max(mode.hz / first, 1.0)));
        mode.level *= chance.About(0.15);
        mode.hz *= chance.About(body.detune);
        if (mode.hz < 0.45 * rate) Ring(sound, mode);
    }
    const auto [level, fall, low, high] = body.click;
    if (level > 0.0)
        MixAt(sound, NoiseBurst(rate, 0.0004, fall, low, high, chance), 0.0,
              level * std::pow(strength, 1.5));
    return sound;
}

Body Scaled(Body body, double factor) {
    for (Mode& mode : body.modes) mode.hz *= factor;
    return body;
}

Body BellOf(double hz, double fall) {
    return {{{hz, fall, 1.0},
             {hz * 1.19, fall * 0.8, 0.5},
             {hz * 1.98, fall * 0.7, 0.8},
             {hz * 2.44, fall * 0.5, 0.4},
             {hz * 2.98, fall * 0.4, 0.45},
             {hz * 4.2, fall * 0.25, 0.3},
             {hz * 5.4, fall * 0.15, 0.25}},
            {0.3, 0.01, 2500, 9000},
            0.0005};
}

Body BarOf(double hz, double fall) {
    return {{{hz, fall, 1.0}, {hz * 2.76, fall * 0.35, 0.35}, {hz * 5.4, fall * 0.15, 0.2}},
            {0.15, 0.006, 2000, 9000},
            0.0005};
}

}  // namespace tamlo::soundsmith
