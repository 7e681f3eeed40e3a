#include "recording/spoken_samples.h"

#include <span>
#include <stdexcept>

#include "audio/voice/speech_delivery.h"
#include "audio/voice/wording.h"

namespace tamlo {

SpokenSamples::SpokenSamples(std::unique_ptr<Synthesizer> synthesizer)
    : synthesizer_(std::move(synthesizer)), voices_(synthesizer_->Open()) {
    if (voices_ == 0) throw std::runtime_error("there is no voice to speak with");
}

std::vector<float> SpokenSamples::Of(std::string_view text, int rate, int voice,
                                     bool after_another) {
    const Utterance utterance{WithSpokenAmounts(CleanedForSpeech(text)), rate,
                              voice < voices_ ? voice : 0};
    std::vector<float> samples;
    if (utterance.text.find_first_not_of(" \n") == utterance.text.npos) return samples;
    // Only the pause before a text needs to know of another.
    SpeechDelivery delivery(synthesizer_->Rate(utterance.voice), Onset::cut,
                            {[&](std::span<const float> made) {
                                 samples.insert(samples.end(), made.begin(), made.end());
                                 return true;
                             },
                             [&] { return after_another; }});
    synthesizer_->Synthesize(
        utterance, [&](std::span<const std::int16_t> made) { return delivery.Take(made); });
    delivery.Finish();
    return samples;
}

}  // namespace tamlo
