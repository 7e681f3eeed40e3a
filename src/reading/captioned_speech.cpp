// Writing what is spoken.
#include "reading/captioned_speech.h"

#include <utility>

#include "text/printable.h"

namespace tamlo {
namespace {

/// A spoken text never looks like a caption: one that begins with a bracket gets a blank before.
std::string SpokenLine(std::string_view text) {
    const std::string line = PrintableLine(text);
    return line.starts_with('[') ? ' ' + line : line;
}

class CaptionedEngine final : public SpeechEngine {
  public:
    CaptionedEngine(std::unique_ptr<SpeechEngine> voice, const WriteLine& write)
        : voice_(std::move(voice)), write_(write) {}

    void Speak(std::string_view text, SpeakFlags flags) override {
        // A text that is spoken in full is written before the wait for its end. Any other is
        // spoken first: the voice must not wait for a slow terminal.
        if (flags == SpeakFlags::wait) Write(text);
        voice_->Speak(text, flags);
        if (flags == SpeakFlags::queue) Write(text);
    }
    RunningState Status() const override { return voice_->Status(); }
    double SecondsLeft() const override { return voice_->SecondsLeft(); }
    void SetRate(int rate) override { voice_->SetRate(rate); }
    void SetEchoRate(int rate) override { voice_->SetEchoRate(rate); }
    void SetVolume(int volume) override { voice_->SetVolume(volume); }
    int GetVoicesCount() const override { return voice_->GetVoicesCount(); }
    void SetVoice(int index) override { voice_->SetVoice(index); }

  private:
    void Write(std::string_view text) {
        if (const std::string line = SpokenLine(text); !line.empty()) write_(line);
    }

    std::unique_ptr<SpeechEngine> voice_;
    const WriteLine& write_;
};

}  // namespace

CaptionedSpeech::CaptionedSpeech(Speech& voice, WriteLine write)
    : voice_(voice), write_(std::move(write)) {}

std::unique_ptr<SpeechEngine> CaptionedSpeech::CreateEngine() {
    return std::make_unique<CaptionedEngine>(voice_.CreateEngine(), write_);
}

}  // namespace tamlo
