// A voice whose utterances are written to the trace and take a fixed time per character.
#pragma once

#include "rehearsal/stage.h"
#include "services/speech.h"

namespace tamlo {

class RehearsedEngine;

class RehearsedSpeech final : public Speech {
  public:
    RehearsedSpeech(Stage& stage, int voices) : stage_(stage), voices_(voices) {}
    std::unique_ptr<SpeechEngine> CreateEngine() override;

  private:
    Stage& stage_;
    int voices_;
    const RehearsedEngine* newest_ = nullptr;

    friend class RehearsedEngine;
};

}  // namespace tamlo
