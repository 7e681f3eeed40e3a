// Writes a finished sound as the bytes of a RIFF/WAVE file that also reads as the text fields its
// effect is recorded with.
#pragma once

#include <cstddef>
#include <string>

#include "sound.h"
#include "sound/effects.h"

namespace tamlo::soundsmith {

/// The longest sound that the file of a checked effect has room for, in samples; 0 for an unchecked
/// effect, whose file is as long as its sound.
std::size_t RoomFor(const Effect& effect);

/// The whole file. `sound` has the effect's rate and is cut at the room there is; a shorter one
/// leaves a larger filler chunk. 8-bit samples are dithered, with noise seeded by the name.
std::string WaveFile(const Effect& effect, const Sound& sound);

}  // namespace tamlo::soundsmith
