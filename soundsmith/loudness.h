// Loudness as people hear it (ITU-R BS.1770, gated), and levelling a finished sound to a target.
#pragma once

#include "sound.h"

namespace tamlo::soundsmith {

/// In LUFS; -120 for silence. A sound under 0.4 s is measured as one block.
double Loudness(const Sound& sound);

/// Scales to `lufs`, holding peaks under `peak_db` (dB below full scale) by a limiter that looks
/// 3 ms ahead. Where the two contradict each other, the peak wins.
void LevelTo(Sound& sound, double lufs, double peak_db);

}  // namespace tamlo::soundsmith
