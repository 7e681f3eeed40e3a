// From a recipe to the finished sound of an effect.
#pragma once

#include "sound.h"
#include "sound/effects.h"

namespace tamlo::soundsmith {

/// The rate at which the effect's sound is made: samples a second.
int WorkingRate(const Effect& effect);

/// The effect's sound at the rate of its file: made by its recipe and finished. Throws
/// std::runtime_error when it has no recipe or the recipe makes nothing.
Sound MakeSound(const Effect& effect);

/// A sound at the working rate, freed of DC, at the rate of the file, faded at its ends unless it
/// is a loop, levelled and limited. Throws std::runtime_error for silence.
Sound Finished(const Effect& effect, Sound made);

}  // namespace tamlo::soundsmith
