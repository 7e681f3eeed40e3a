// What each sound of the game stands for, as captions tell it.
#pragma once

#include <string_view>

#include "reading/captions.h"

namespace tamlo {

/// The meaning of NAME.wav; of any other name, one that tells nothing.
SoundMeaning MeaningOfSound(std::string_view name);

}  // namespace tamlo
