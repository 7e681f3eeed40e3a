// The door of a car.
#pragma once

#include "chance.h"
#include "sound.h"

namespace tamlo::soundsmith {

Sound CarDoorOpens(int rate, Chance& chance);
Sound CarDoorShuts(int rate, Chance& chance);

}  // namespace tamlo::soundsmith
