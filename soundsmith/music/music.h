// Tunes of the game's own.
#pragma once

#include "recipes.h"

namespace tamlo::soundsmith {

Sound TitleTune(Brief brief);

}  // namespace tamlo::soundsmith
