// Where sound begins: noise and tones.
#pragma once

#include <vector>

#include "chance.h"
#include "curve.h"
#include "sound.h"

namespace tamlo::soundsmith {

Sound WhiteNoise(int rate, double seconds, Chance& chance);

// Noise that falls by 3 dB an octave: wind, water, crowds and roads lie near it.
Sound PinkNoise(int rate, double seconds, Chance& chance);

// A puff of noise between two frequencies, struck: it rises in `rise` and dies away in `fall`
// seconds.
Sound NoiseBurst(int rate, double rise, double fall, double low_hz, double high_hz, Chance& chance);

// Like the noise of a loop's whole length between two frequencies, ready to be shaped.
Sound NoiseBand(const Sound& like, double low_hz, double high_hz, Chance& chance);

// One of the tones that a sound is made of, `ratio` times its pitch.
struct Partial {
    double ratio;
    double level;
};

// Partials 1, 2, 3 ... at these levels.
std::vector<Partial> Harmonics(std::initializer_list<double> levels);

// `count` harmonics that fall by `decibels` an octave: -6 is a saw, bright; -12 is soft.
std::vector<Partial> FallingHarmonics(int count, double decibels);

// A tone whose pitch follows `hz`. Partials above 0.45 of the rate are left out.
Sound Tone(int rate, double seconds, const Curve& hz, const std::vector<Partial>& partials);

// A pitch that swings by `part` either way, `per_second` times.
Curve Vibrato(double hz, double part, double per_second, double seconds);

}  // namespace tamlo::soundsmith
