// The engines of the traffic around the player.
#pragma once

#include "engine.h"

namespace tamlo::soundsmith {

extern const EngineKind kSmallCarEngine;   // four quiet cylinders
extern const EngineKind kPatrolCarEngine;  // a well-kept V8
extern const EngineKind kWreckEngine;      // one cylinder dead, another fires when it likes
extern const EngineKind kTruckEngine;      // a big diesel six
extern const EngineKind kBusEngine;        // a diesel six under a floor
extern const EngineKind kLocomotiveEngine;
extern const EngineKind kTwinEngine;  // a big V of two, firing unevenly
extern const EngineKind kRacyEngine;  // many small cylinders far up their range

}  // namespace tamlo::soundsmith
