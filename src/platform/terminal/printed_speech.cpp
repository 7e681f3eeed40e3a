// Printing what is spoken.
#include "platform/terminal/printed_speech.h"

#include <utility>

namespace tamlo {
namespace {

class PrintedEngine : public SpeechEngine {
  public:
    PrintedEngine(std::unique_ptr<SpeechEngine> voice, LinePrinter& printer,
                  const std::function<bool()>& wanted)
        : voice_(std::move(voice)), printer_(printer), wanted_(wanted) {}

    void Speak(std::string_view text, SpeakFlags flags) override {
        // A text that is spoken in full is printed before the wait for its end. Any other is
        // spoken first: the voice must not wait for a slow terminal.
        if (flags == SpeakFlags::wait) Print(text);
        voice_->Speak(text, flags);
        if (flags == SpeakFlags::queue) Print(text);
    }
    RunningState Status() const override { return voice_->Status(); }
    double SecondsLeft() const override { return voice_->SecondsLeft(); }
    void SetRate(int rate) override { voice_->SetRate(rate); }
    void SetVolume(int volume) override { voice_->SetVolume(volume); }
    int GetVoicesCount() const override { return voice_->GetVoicesCount(); }
    void SetVoice(int index) override { voice_->SetVoice(index); }

  private:
    void Print(std::string_view text) {
        if (wanted_()) printer_.Print(PrintableLine(text));
    }

    std::unique_ptr<SpeechEngine> voice_;
    LinePrinter& printer_;
    const std::function<bool()>& wanted_;
};

}  // namespace

PrintedSpeech::PrintedSpeech(Speech& voice, LinePrinter& printer, std::function<bool()> wanted)
    : voice_(voice), printer_(printer), wanted_(std::move(wanted)) {}

std::unique_ptr<SpeechEngine> PrintedSpeech::CreateEngine() {
    return std::make_unique<PrintedEngine>(voice_.CreateEngine(), printer_, wanted_);
}

}  // namespace tamlo
