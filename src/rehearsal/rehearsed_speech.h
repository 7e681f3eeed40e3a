// A voice whose utterances are written to the trace and take a fixed time per character.
#pragma once

#include <functional>
#include <utility>

#include "rehearsal/stage.h"
#include "services/speech.h"

namespace tamlo {

class RehearsedEngine;

class RehearsedSpeech final : public Speech {
  public:
    RehearsedSpeech(Stage& stage, int voices);
    std::unique_ptr<SpeechEngine> CreateEngine() override;

    /// Texts last as long as `length` says from now on.
    void SpeakFor(std::function<Ticks(std::string_view text)> length) {
        length_ = std::move(length);
    }

  private:
    Stage& stage_;
    int voices_;
    std::function<Ticks(std::string_view text)> length_;
    const RehearsedEngine* newest_ = nullptr;

    friend class RehearsedEngine;
};

}  // namespace tamlo
