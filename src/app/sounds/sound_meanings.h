// What each sound of the game stands for, as captions tell it.
#pragma once

#include <string_view>

#include "reading/captions.h"

namespace tamlo {

/// The meaning of NAME.wav; an empty one for any other name.
SoundMeaning MeaningOfSound(std::string_view name);

}  // namespace tamlo
