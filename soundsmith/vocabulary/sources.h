// Where sound begins: noise and tones.
#pragma once

#include <vector>

#include "chance.h"
#include "curve.h"
#include "sound.h"

namespace tamlo::soundsmith {

Sound WhiteNoise(int rate, double seconds, Chance& chance);

/// Noise that falls by 3 dB an octave: wind, water, crowds and roads lie near it.
Sound PinkNoise(int rate, double seconds, Chance& chance);

/// A puff of noise between two frequencies, struck: it rises in `rise` and dies away in `fall`
/// seconds.
Sound NoiseBurst(int rate, double rise, double fall, double low_hz, double high_hz, Chance& chance);

/// Like the noise of a loop's whole length between two frequencies, ready to be shaped.
Sound NoiseBand(const Sound& like, double low_hz, double high_hz, Chance& chance);

/// Levels of a tone's harmonics: the first is the tone at its own pitch, the second an octave
/// above.
using Timbre = std::vector<double>;

/// `count` harmonics that fall by `decibels` an octave: -6 is a saw, bright; -12 is soft.
Timbre FallingHarmonics(int count, double decibels);

/// A tone whose pitch follows `hz`. Harmonics above 0.45 of the rate are left out.
Sound Tone(int rate, double seconds, const Curve& hz, const Timbre& timbre);

/// A pitch that swings by `part` either way, `per_second` times.
Curve Vibrato(double hz, double part, double per_second, double seconds);

}  // namespace tamlo::soundsmith
