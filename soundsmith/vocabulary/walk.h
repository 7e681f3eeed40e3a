// Feet, shoes and hooves on the ground.
#pragma once

#include "bodies.h"
#include "chance.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// A step is a heel and, a little later, a softer sole.
struct Shoe {
    Body heel;
    double sole_delay;
    double sole_level;
    double sole_low_hz, sole_high_hz;
    double grit;  ///< sand under the sole
};

Shoe HeavyShoe();
Shoe HighHeel();
Shoe RunningShoe();
Shoe HouseSlipper();

Sound Step(const Shoe& shoe, int rate, double strength, Chance& chance);

/// One hoof on a paved road.
/// Larger hooves sound lower.
Sound Clop(int rate, double size, double strength, Chance& chance);

struct Walk {
    int steps;
    double first;  ///< seconds until the first step
    double apart;  ///< seconds from step to step
    double from_level, to_level;
};

/// Mixes the steps into `onto`, left and right foot a little different, and returns the time of the
/// last one.
double AddWalk(Sound& onto, const Shoe& shoe, const Walk& walk, Chance& chance);

}  // namespace tamlo::soundsmith
