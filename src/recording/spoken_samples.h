// Texts as samples of the audio stream, as the game's voice gives them.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "audio/voice/synthesizer.h"

namespace tamlo {

class SpokenSamples {
  public:
    /// Throws std::runtime_error when there is no voice.
    explicit SpokenSamples(std::unique_ptr<Synthesizer> synthesizer);

    /// Number of voices, at least 1.
    int Voices() const { return voices_; }

    /// The text, spoken at `rate` by `voice`, in samples of the stream; the silence before its
    /// start is cut off as in the game. `after_another`: with the pause between two texts. Empty
    /// for a text in which nothing is spoken.
    std::vector<float> Of(std::string_view text, int rate, int voice, bool after_another);

  private:
    std::unique_ptr<Synthesizer> synthesizer_;
    int voices_;
};

}  // namespace tamlo
