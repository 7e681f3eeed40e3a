#include "platform/voice/voice_speech.h"

#include <algorithm>
#include <chrono>

#include "platform/voice/voice_worker.h"

namespace tamlo {
namespace {

constexpr auto patience_interval = std::chrono::milliseconds(10);
/// Until when nothing can have changed while a text is being synthesized.
constexpr double shortest_rest = 0.005;
constexpr int slowest_rate = -10;
/// Above the player's 10, for the echo of typed keys.
constexpr int fastest_rate = 15;

}  // namespace

struct VoiceSpeech::Shared {
    SpeechHooks hooks;
    VoiceThread worker;
    const Engine* speaker = nullptr;  ///< who spoke last
};

class VoiceSpeech::Engine : public SpeechEngine {
  public:
    explicit Engine(Shared& shared) : shared_(shared) {}
    ~Engine() override {
        if (shared_.speaker != this) return;
        Purge();
        shared_.speaker = nullptr;
    }

    void Speak(std::string_view text, SpeakFlags flags) override;
    RunningState Status() const override {
        return shared_.worker->Speaking() ? RunningState::speaking : RunningState::done;
    }
    double SecondsLeft() const override;

    void SetRate(int rate) override { rate_ = std::clamp(rate, slowest_rate, fastest_rate); }
    void SetVolume(int volume) override {
        volume_ = std::clamp(volume, 0, 100);
        ApplyVolume();
    }

    int GetVoicesCount() const override { return shared_.worker->Voices(); }
    void SetVoice(int index) override {
        if (index >= 0 && index < GetVoicesCount()) voice_ = index;
    }

  private:
    void Purge() { shared_.worker->Drop(); }
    void ApplyVolume() { shared_.worker->stream.SetGain(static_cast<float>(volume_) / 100.0f); }
    void Wait();

    Shared& shared_;
    int rate_ = 0;
    int volume_ = 100;
    int voice_ = 0;
};

void VoiceSpeech::Engine::Speak(std::string_view text, SpeakFlags flags) {
    if (flags == SpeakFlags::purge) {
        Purge();
        return;
    }
    if (shared_.hooks.spoken) shared_.hooks.spoken(text);
    shared_.speaker = this;
    ApplyVolume();
    shared_.worker->Speak({std::string(text), rate_, voice_});
    if (flags == SpeakFlags::wait) Wait();
}

void VoiceSpeech::Engine::Wait() {
    try {
        while (shared_.worker->Speaking()) {
            shared_.worker->stream.ended.SleepFor(patience_interval);
            if (shared_.hooks.patience) shared_.hooks.patience();
        }
    } catch (...) {
        Purge();
        throw;
    }
}

double VoiceSpeech::Engine::SecondsLeft() const {
    bool coming = shared_.worker->SamplesComing();
    double queued = static_cast<double>(shared_.worker->stream.Left()) / stream_rate;
    return coming ? std::max(queued, shortest_rest) : queued;
}

VoiceSpeech::VoiceSpeech(SpeechHooks hooks, std::unique_ptr<Synthesizer> synthesizer)
    : shared_(new Shared{std::move(hooks), VoiceThread(std::move(synthesizer))}) {}

VoiceSpeech::~VoiceSpeech() = default;

std::unique_ptr<SpeechEngine> VoiceSpeech::CreateEngine() {
    return std::make_unique<Engine>(*shared_);
}

Source& VoiceSpeech::Stream() {
    return shared_->worker->stream;
}

bool VoiceSpeech::SamplesComing() const {
    return shared_->worker->SamplesComing();
}

}  // namespace tamlo
