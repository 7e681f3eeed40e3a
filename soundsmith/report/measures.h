// What instruments say about a finished sound, where nobody has listened to it yet.
#pragma once

#include "report/spectrum.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// The largest absolute sample in decibels below full scale (0 or less, -240 for silence).
double PeakLevel(const Sound& sound);

/// The distance of the mean from zero, in per cent of full scale.
double DcShare(const Sound& sound);

/// For a loop: the sharpest bend of the wave where its end meets its start, as a multiple of the
/// sharpest bend within 10 ms on either side. Up to about 1 the seam cannot be told from the sound;
/// a click has 3 or more. 0 for a sound that is played once.
double SeamRoughness(const Sound& sound);

/// What speech is made of, in a sound or a voice.
struct VoiceMeasures {
    double pitch;     // hertz, the median of where there is one; 0 when there is none
    double voiced;    // share of the loud 10 ms steps that have a pitch, 0 to 1
    double movement;  ///< how far the colour moves within 0.1 s, in decibels
    Bands colour;     // of the whole sound
};

VoiceMeasures MeasureVoice(const Sound& sound);

/// Whether the measures are those of somebody speaking: a voice most of the time, whose colour
/// keeps changing from vowel to consonant.
bool IsSpeech(const VoiceMeasures& voice);

}  // namespace tamlo::soundsmith
