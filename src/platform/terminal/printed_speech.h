// Speech that is printed as well as spoken.
#pragma once

#include "platform/speech.h"
#include "platform/terminal/printed_lines.h"

namespace tamlo {

/// Prints texts as lines when they are given to the voice behind.
class PrintedSpeech : public Speech {
  public:
    /// Prints a text only if `wanted` says so at that moment. Both references must outlive this
    /// object, and this object its engines.
    PrintedSpeech(Speech& voice, LinePrinter& printer, std::function<bool()> wanted);
    std::unique_ptr<SpeechEngine> CreateEngine() override;

  private:
    Speech& voice_;
    LinePrinter& printer_;
    std::function<bool()> wanted_;
};

}  // namespace tamlo
