// What a stretch of sound is made of: the strength of its frequencies.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "sound.h"

namespace tamlo::soundsmith {

/// The power at 0, 1, ... size/2 times rate/size hertz in the `size` samples (a power of two)
/// around sample `centre`, under a raised cosine; silence is taken to lie beyond the ends.
std::vector<double> PowerSpectrum(const Sound& sound, std::ptrdiff_t centre, std::size_t size);

constexpr std::size_t band_count = 24;

/// Levels in decibels of bands a third of an octave or so wide, from 100 to 7000 hertz.
using Bands = std::array<double, band_count>;

/// The bands of a spectrum made at `rate`, each with the mean of all taken off: the colour of a
/// sound whatever its level. Bands more than 60 dB below the strongest count as 60 dB below it.
Bands ColourOf(const std::vector<double>& spectrum, int rate);

/// How far apart two colours are: root mean square of the differences, in decibels.
double Distance(const Bands& a, const Bands& b);

}  // namespace tamlo::soundsmith
