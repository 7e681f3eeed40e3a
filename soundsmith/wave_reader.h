/// Reads wave files: those of the set, so that what is measured is what will be heard, and what the
/// speech programs wrote.
#pragma once

#include <string_view>

#include "sound.h"

namespace tamlo::soundsmith {

/// The sound in the bytes of a RIFF/WAVE file of one channel, 8 or 16 bits; unknown chunks are
/// skipped. Throws std::runtime_error for anything else.
Sound ReadWave(std::string_view bytes);

}  // namespace tamlo::soundsmith
