// From the frames of a sentence to samples, slower or quicker than the voice speaks by itself.
#pragma once

#include <array>

#include "audio/voice/flite_sentence.h"
#include "audio/voice/synthesizer.h"

namespace tamlo {

/// Says a sentence at `pace` times the voice's own, without a change of pitch, 5 ms at a time;
/// false if the sink broke off. The sentence goes on being made as its samples are.
bool SayWithFlite(const FliteLibrary& library, FliteModel& model, FliteSentence& sentence,
                  double pace, const Synthesizer::Sink& sink);

}  // namespace tamlo
