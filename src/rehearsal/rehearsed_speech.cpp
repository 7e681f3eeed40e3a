#include "rehearsal/rehearsed_speech.h"

#include <string>

#include "text/printable.h"
#include "text/utf8.h"

namespace tamlo {

namespace {

constexpr Ticks ticks_per_character = 5;

Ticks UsualLength(std::string_view text) {
    return static_cast<Ticks>(CountCharacters(text)) * ticks_per_character;
}

}  // namespace

class RehearsedEngine final : public SpeechEngine {
  public:
    explicit RehearsedEngine(RehearsedSpeech& speech) : speech_(speech) {}

    ~RehearsedEngine() override {
        // The stage has one voice: a newer engine has already silenced this one.
        if (speech_.newest_ != this) return;
        speech_.newest_ = nullptr;
        TheStage().Hush();
    }

    void Speak(std::string_view text, SpeakFlags flags) override {
        if (flags == SpeakFlags::purge) {
            TheStage().Write("hush");
            TheStage().Hush();
            return;
        }
        const bool wait = flags == SpeakFlags::wait;
        const Ticks length = speech_.voices_ > 0 ? speech_.length_(text) : 0;
        TheStage().Write(wait ? "say" : "say2", Quoted(text));
        TheStage().Speak(text, length, wait);
    }

    RunningState Status() const override {
        const bool speaking = TheStage().SpeechEndsAt() > TheStage().Now();
        return speaking ? RunningState::speaking : RunningState::done;
    }

    double SecondsLeft() const override {
        const Ticks left = std::max<Ticks>(TheStage().SpeechEndsAt() - TheStage().Now(), 0);
        return static_cast<double>(left) / ticks_per_second;
    }

    void SetRate(int rate) override { Set("rate", rate); }
    void SetEchoRate(int rate) override { Set("rate", rate + echo_quicker); }
    void SetVolume(int volume) override { Set("volume", volume); }

    int GetVoicesCount() const override {
        TheStage().Asked();
        return speech_.voices_;
    }

    void SetVoice(int index) override {
        if (index >= 0 && index < speech_.voices_) Set("voice", index);
    }

  private:
    Stage& TheStage() const { return speech_.stage_; }

    void Set(std::string_view setting, int value) {
        TheStage().Asked();
        TheStage().Write(setting, std::to_string(value));
    }

    RehearsedSpeech& speech_;
};

RehearsedSpeech::RehearsedSpeech(Stage& stage, int voices)
    : stage_(stage), voices_(voices), length_(UsualLength) {}

std::unique_ptr<SpeechEngine> RehearsedSpeech::CreateEngine() {
    stage_.Hush();
    stage_.Write("engine");
    auto engine = std::make_unique<RehearsedEngine>(*this);
    newest_ = engine.get();
    return engine;
}

}  // namespace tamlo
