// A piece of sound while it is being made, and the plain operations on it: mixing, levels, fades.
#pragma once

#include <cstddef>
#include <vector>

namespace tamlo::soundsmith {

/// One channel of samples, full scale at -1 and 1 (more is allowed until it is written). A loop's
/// end joins its start: whatever is mixed over the end comes in again at the start, and filters and
/// rooms ring round the seam, so that a loop made of these operations has no seam to hear.
struct Sound {
    int rate = 44100;  ///< samples a second
    std::vector<double> samples;
    bool loop = false;

    double Seconds() const { return static_cast<double>(samples.size()) / rate; }
};

double FromDecibels(double decibels);
double ToDecibels(double factor);

/// The number of samples in `seconds`, rounded; 0 for a negative time.
std::size_t FramesIn(double seconds, int rate);

Sound Silence(int rate, double seconds);

/// Adds `what` to `onto`, `at_seconds` after its start. What lies outside is dropped, or comes
/// round when `onto` is a loop. Both must have the same rate.
void MixAt(Sound& onto, const Sound& what, double at_seconds, double gain = 1.0);

/// Adds one sample value between two samples, in proportion; the same rules as MixAt.
void AddImpulse(Sound& onto, double at_seconds, double value);

void Gain(Sound& sound, double factor);
void FadeIn(Sound& sound, double seconds);
void FadeOut(Sound& sound, double seconds);

/// The first `seconds`, the rest cut off; silence is added when it is shorter.
void SetLength(Sound& sound, double seconds);
Sound Append(Sound first, const Sound& second);

/// The largest absolute sample; 0 for an empty sound.
double Peak(const Sound& sound);

/// Scales to a peak of `peak`; leaves silence alone.
void NormalisePeak(Sound& sound, double peak = 1.0);

/// A gentle tanh curve: rounds what comes near 1, and colours as an overdriven thing does.
void Saturate(Sound& sound, double drive);

/// Plays `sound` at `factor` times its speed, so pitch rises with it (factor > 0).
Sound AtSpeed(const Sound& sound, double factor);

/// Every `factor`-th sample after a steep low-pass: the way from the rate a sound is made at down
/// to the rate of its file.
Sound Decimate(const Sound& sound, int factor);

}  // namespace tamlo::soundsmith
