// From a recipe to the finished sound of an effect.
#pragma once

#include "sound.h"
#include "sound/effects.h"

namespace tamlo::soundsmith {

// The effect's sound at the rate of its file: made by its recipe, freed of DC, faded at its ends
// unless it is a loop, levelled and limited. Throws std::runtime_error when it has no recipe or
// the recipe makes nothing.
Sound MakeSound(const Effect& effect);

}  // namespace tamlo::soundsmith
