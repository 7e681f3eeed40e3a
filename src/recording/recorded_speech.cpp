#include "recording/recorded_speech.h"

#include <algorithm>

namespace tamlo {
namespace {

constexpr int slowest_rate = -10;
constexpr int fastest_rate = 10;

}  // namespace

class RecordedEngine final : public SpeechEngine {
  public:
    RecordedEngine(std::unique_ptr<SpeechEngine> rehearsed, RecordedSpeech& speech)
        : rehearsed_(std::move(rehearsed)), speech_(speech) {}
    RecordedEngine(const RecordedEngine&) = delete;
    RecordedEngine& operator=(const RecordedEngine&) = delete;
    ~RecordedEngine() override {
        // A newer engine has silenced this one already.
        if (speech_.newest_ != this) return;
        speech_.newest_ = nullptr;
        speech_.desk_.Hush();
    }

    void Speak(std::string_view text, SpeakFlags flags) override {
        if (flags == SpeakFlags::purge) {
            speech_.desk_.Hush();
        } else {
            speech_.desk_.Say(text, rate_, voice_);
        }
        rehearsed_->Speak(text, flags);
    }
    RunningState Status() const override { return rehearsed_->Status(); }
    double SecondsLeft() const override { return rehearsed_->SecondsLeft(); }
    void SetRate(int rate) override {
        rate_ = std::clamp(rate, slowest_rate, fastest_rate);
        rehearsed_->SetRate(rate);
    }
    void SetEchoRate(int rate) override {
        rate_ = std::clamp(rate, slowest_rate, fastest_rate) + echo_quicker;
        rehearsed_->SetEchoRate(rate);
    }
    void SetVolume(int volume) override {
        speech_.desk_.SetVolume(volume);
        rehearsed_->SetVolume(volume);
    }
    int GetVoicesCount() const override { return rehearsed_->GetVoicesCount(); }
    void SetVoice(int index) override {
        voice_ = std::max(index, 0);
        rehearsed_->SetVoice(index);
    }

  private:
    std::unique_ptr<SpeechEngine> rehearsed_;
    RecordedSpeech& speech_;
    int rate_ = 0;
    int voice_ = 0;
};

std::unique_ptr<SpeechEngine> RecordedSpeech::CreateEngine() {
    desk_.Hush();
    auto engine = std::make_unique<RecordedEngine>(rehearsed_.CreateEngine(), *this);
    newest_ = engine.get();
    return engine;
}

}  // namespace tamlo
