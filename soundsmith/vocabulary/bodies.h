// Things that are struck: wood, iron, bells, coins. A body is the tones it rings with and the click
// of the blow.
#pragma once

#include <vector>

#include "chance.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// One ringing tone; `fall` is the time in seconds to 1/1000 of its level.
struct Mode {
    double hz;
    double fall;
    double level;
};

struct Click {
    double level;
    double fall;
    double low_hz;
    double high_hz;
};

struct Body {
    std::vector<Mode> modes;
    Click click;
    double detune = 0.01;  ///< how far tones wander from blow to blow
};

/// One blow. A weak one (strength below 1) is duller as well as quieter.
Sound Hit(const Body& body, int rate, double strength, Chance& chance);

/// The same body, larger or smaller: all its tones times `factor`.
Body Scaled(Body body, double factor);

/// A bell of pitch `hz` that rings for `fall` seconds: the partials of a cast bell, each higher one
/// dying sooner.
Body BellOf(double hz, double fall);

/// A struck bar, as of a chime or a glockenspiel.
Body BarOf(double hz, double fall);

}  // namespace tamlo::soundsmith
