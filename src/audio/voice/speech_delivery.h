// From the samples of a synthesizer to those of the stream: at its rate, without the silence at the
// start of a text, and with a pause between texts.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "audio/mixing/sinc.h"

namespace tamlo {

/// What becomes of the silence at the start of texts.
enum class Onset {
    cut,   ///< it only delays them
    kept,  ///< they are nothing else
};

/// The samples of one text.
class SpeechDelivery {
  public:
    struct Stream {
        /// Puts samples into the stream; false breaks off.
        std::function<bool(std::span<const float>)> put;
        /// Whether another text is still to be heard, so that a pause must come between.
        std::function<bool()> sounding;
    };

    /// `rate`: the synthesizer's samples a second.
    SpeechDelivery(int rate, Onset onset, Stream stream);

    /// False breaks off.
    bool Take(std::span<const std::int16_t> samples);
    /// After the last samples.
    void Finish();

  private:
    bool Deliver();

    Resampler resampler_;
    const Stream stream_;
    std::vector<float> samples_;
    bool onset_found_;  ///< the text has come to its first audible sample
};

}  // namespace tamlo
