// Speech that is written as well as spoken.
#pragma once

#include "reading/captions.h"
#include "services/speech.h"

namespace tamlo {

/// Writes each text as a line when it is given to the voice behind.
class CaptionedSpeech : public Speech {
  public:
    /// The voice must outlive this object, and this object its engines.
    CaptionedSpeech(Speech& voice, WriteLine write);
    std::unique_ptr<SpeechEngine> CreateEngine() override;

  private:
    Speech& voice_;
    WriteLine write_;
};

}  // namespace tamlo
