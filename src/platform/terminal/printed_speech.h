// Speech that is printed as well as spoken.
#pragma once

#include "platform/speech.h"
#include "platform/terminal/printed_lines.h"

namespace tamlo {

/// Prints every text as a line when it is given to the voice behind.
class PrintedSpeech : public Speech {
  public:
    /// Both must outlive this object and its engines.
    PrintedSpeech(Speech& voice, LinePrinter& printer) : voice_(voice), printer_(printer) {}
    std::unique_ptr<SpeechEngine> CreateEngine() override;

  private:
    Speech& voice_;
    LinePrinter& printer_;
};

}  // namespace tamlo
