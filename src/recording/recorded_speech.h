// The rehearsal's speech, said aloud into the recording.
#pragma once

#include "recording/desk.h"
#include "services/speech.h"

namespace tamlo {

class RecordedEngine;

class RecordedSpeech final : public Speech {
  public:
    /// Both must outlive this object and its engines.
    RecordedSpeech(Speech& rehearsed, Desk& desk) : rehearsed_(rehearsed), desk_(desk) {}
    std::unique_ptr<SpeechEngine> CreateEngine() override;

  private:
    friend class RecordedEngine;

    Speech& rehearsed_;
    Desk& desk_;
    const RecordedEngine* newest_ = nullptr;
};

}  // namespace tamlo
