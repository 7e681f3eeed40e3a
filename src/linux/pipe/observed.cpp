// Passing calls on, and telling of them.
#include "linux/pipe/observed.h"

#include <utility>

namespace tamlo {
namespace {

class ObservedEngine final : public SpeechEngine, private Busy {
  public:
    ObservedEngine(std::unique_ptr<SpeechEngine> real, Activity& activity)
        : Busy(activity), real_(std::move(real)) {}

    void Speak(std::string_view text, SpeakFlags flags) override {
        real_->Speak(text, flags);
        // A blocking text counts until its end.
        activity_.Asked();
    }
    RunningState Status() const override { return real_->Status(); }
    double SecondsLeft() const override { return real_->SecondsLeft(); }
    void SetRate(int rate) override { Asked().SetRate(rate); }
    void SetEchoRate(int rate) override { Asked().SetEchoRate(rate); }
    void SetVolume(int volume) override { Asked().SetVolume(volume); }
    int GetVoicesCount() const override {
        activity_.Asked();
        return real_->GetVoicesCount();
    }
    void SetVoice(int index) override { Asked().SetVoice(index); }

    bool IsBusy() const override { return real_->Status() == RunningState::speaking; }

  private:
    SpeechEngine& Asked() {
        activity_.Asked();
        return *real_;
    }

    std::unique_ptr<SpeechEngine> real_;
};

class ObservedBuffer final : public SoundBuffer, private Busy {
  public:
    ObservedBuffer(std::unique_ptr<SoundBuffer> real, Activity& activity)
        : Busy(activity), real_(std::move(real)) {}

    void SetCurrentPosition(unsigned frame) override { Asked().SetCurrentPosition(frame); }
    void SetVolume(int volume) override { Asked().SetVolume(volume); }
    void SetPan(int pan) override { Asked().SetPan(pan); }
    int GetFrequency() const override { return real_->GetFrequency(); }
    void SetFrequency(int frequency) override { Asked().SetFrequency(frequency); }
    void Play(PlayMode mode) override {
        once_ = mode == PlayMode::once;
        Asked().Play(mode);
    }
    void Stop() override { Asked().Stop(); }
    int GetStatus() const override { return real_->GetStatus(); }
    double SecondsLeft() const override { return real_->SecondsLeft(); }

    bool IsBusy() const override { return once_ && real_->GetStatus() == status_playing; }

  private:
    SoundBuffer& Asked() {
        activity_.Asked();
        return *real_;
    }

    std::unique_ptr<SoundBuffer> real_;
    bool once_ = false;  ///< how it was last played
};

class ObservedDevice final : public SoundDevice {
  public:
    ObservedDevice(std::unique_ptr<SoundDevice> real, Activity& activity)
        : real_(std::move(real)), activity_(activity) {}

    void SetCooperativeLevel(int level) override {
        activity_.Asked();
        real_->SetCooperativeLevel(level);
    }
    std::unique_ptr<SoundBuffer> CreateBufferFromFile(
        std::string_view name, const BufferDescription& description) override {
        activity_.Asked();
        return std::make_unique<ObservedBuffer>(real_->CreateBufferFromFile(name, description),
                                                activity_);
    }

  private:
    std::unique_ptr<SoundDevice> real_;
    Activity& activity_;
};

}  // namespace

std::unique_ptr<SpeechEngine> ObservedSpeech::CreateEngine() {
    activity_.Asked();
    return std::make_unique<ObservedEngine>(real_.CreateEngine(), activity_);
}

std::unique_ptr<SoundDevice> ObservedSound::CreateDevice() {
    activity_.Asked();
    return std::make_unique<ObservedDevice>(real_.CreateDevice(), activity_);
}

Desktop& ObservedDesktop::Asked() {
    activity_.Asked();
    return real_;
}

std::string ObservedDesktop::SpecialFolder(int number) {
    return Asked().SpecialFolder(number);
}

void ObservedDesktop::MessageBox(const std::string& text) {
    Asked().MessageBox(text);
}

void ObservedDesktop::Beep() {
    Asked().Beep();
}

bool ObservedDesktop::StartEditor(const std::string& path) {
    return Asked().StartEditor(path);
}

bool ObservedDesktop::StartLauncher(const std::string& path) {
    return Asked().StartLauncher(path);
}

void ObservedDesktop::StartGame() {
    Asked().StartGame();
}

void ObservedRandom::Seed(double number) {
    activity_.Asked();
    real_.Seed(number);
}

double ObservedRandom::Next() {
    activity_.Asked();
    return real_.Next();
}

}  // namespace tamlo
