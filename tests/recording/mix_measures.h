// What a listener would notice about a mix, in figures.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace tamlo {

/// A part of the recording, in seconds from its start.
struct Span {
    double begin;
    double end;
};

/// Both ears in turn, at the rate of the stream; the span is brought into the sound.
std::span<const float> PartOf(std::span<const float> stereo, Span span);

/// Integrated loudness, gated, in LUFS; -120 for silence.
double LoudnessOf(std::span<const float> stereo);
/// The highest peak between samples, in dB below full scale.
double TruePeak(std::span<const float> stereo);
/// The loudest second (or the whole of a shorter sound) in LUFS.
double LoudestSecond(std::span<const float> stereo);
/// The right ear's level above the left's in dB; 0 for silence.
double RightAboveLeft(std::span<const float> stereo);
/// The largest absolute sample.
float PeakOf(std::span<const float> stereo);

/// Moments, in seconds, at which a step stands out from all that surrounds it: within a millisecond
/// the wave bends eight times as sharply as anywhere in the 100 ms before and after. The pulses of
/// an engine follow each other sooner, and a knock goes on after its first sample.
std::vector<double> Clicks(std::span<const float> stereo);

}  // namespace tamlo
