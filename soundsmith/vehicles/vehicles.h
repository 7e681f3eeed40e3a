// The player's three vehicles, and moving off and arriving, which are common to them.
#pragma once

#include "recipes.h"
#include "vocabulary/engine.h"

namespace tamlo::soundsmith {

Sound ScooterStart(Brief brief);
Sound ScooterIdle(Brief brief);
Sound ScooterPullsAway(Brief brief);
Sound BuggyStart(Brief brief);
Sound BuggyIdle(Brief brief);
Sound BuggyPullsAway(Brief brief);
Sound VanStart(Brief brief);
Sound VanIdle(Brief brief);
Sound VanPullsAway(Brief brief);
Sound MovingOff(Brief brief);
Sound Arrival(Brief brief);

/// A stretch of driving.
struct Ride {
    Curve cycles;     // of the engine, a second
    Curve load;       // 0 to 1
    Curve bright_hz;  ///< what lies above is damped: a closed throttle is dull
    Curve level;
};

Sound DriveEngine(const EngineKind& kind, const Sound& like, const Ride& ride, Chance& chance);

}  // namespace tamlo::soundsmith
