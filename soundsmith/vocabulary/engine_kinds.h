// The engines of the traffic around the player.
#pragma once

#include "engine.h"

namespace tamlo::soundsmith {

extern const EngineKind small_car_engine;   // four quiet cylinders
extern const EngineKind patrol_car_engine;  ///< a well-kept V8
extern const EngineKind wreck_engine;       // one cylinder dead, another fires when it likes
extern const EngineKind truck_engine;       // a big diesel six
extern const EngineKind bus_engine;         // a diesel six under a floor
extern const EngineKind locomotive_engine;
extern const EngineKind twin_engine;  ///< a big V of two, firing unevenly
extern const EngineKind racy_engine;  ///< many small cylinders far up their range

}  // namespace tamlo::soundsmith
