// Pictures of a sound, as the bytes of PNG files.
#pragma once

#include <string>

#include "sound.h"

namespace tamlo::soundsmith {

inline constexpr int picture_width = 420;
inline constexpr int waveform_height = 72;
inline constexpr int spectrogram_height = 144;

/// The highest and lowest samples of each moment, scaled to the sound's own peak.
std::string WaveformPicture(const Sound& sound);

/// Time to the right, pitch upwards from 50 to 11000 hertz in octaves of equal height, level as
/// brightness over the 72 dB below the sound's own strongest. What the rate cannot hold stays grey.
std::string SpectrogramPicture(const Sound& sound);

}  // namespace tamlo::soundsmith
