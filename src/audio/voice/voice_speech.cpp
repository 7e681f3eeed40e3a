#include "audio/voice/voice_speech.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "audio/voice/voice_worker.h"
#include "audio/voice/voices.h"

namespace tamlo {
namespace {

constexpr auto patience_interval = std::chrono::milliseconds(10);
/// Until when nothing can have changed while a text is being synthesized.
constexpr double shortest_rest = 0.005;
constexpr int slowest_rate = -10;
constexpr int fastest_rate = 10;
/// Each that hangs keeps its memory, and its processor if it goes round in circles.
constexpr std::size_t most_threads = 4;

}  // namespace

/// The stream of the present worker.
class VoiceSpeech::PresentStream : public Source {
  public:
    /// The bell is for one stream at a time. For the game's thread, as RingOnChange.
    void Follow(SpeechStream& stream) {
        if (SpeechStream* before = stream_; before != nullptr) before->RingOnChange(nullptr);
        stream.RingOnChange(bell_);
        stream_ = &stream;
    }
    void RingOnChange(ChangeBell* bell) noexcept override {
        bell_ = bell;
        stream_.load()->RingOnChange(bell);
    }

    void BeginBlock(bool heard) noexcept override { stream_.load()->BeginBlock(heard); }
    void AddTo(float* stereo, int frames) noexcept override {
        stream_.load()->AddTo(stereo, frames);
    }
    void SaveState(int slot) noexcept override { stream_.load()->SaveState(slot); }
    void RestoreState(int slot) noexcept override { stream_.load()->RestoreState(slot); }
    void Commit(int slot, int frames) noexcept override { stream_.load()->Commit(slot, frames); }

  private:
    std::atomic<SpeechStream*> stream_{nullptr};
    ChangeBell* bell_ = nullptr;
};

struct VoiceSpeech::Shared {
    Shared(SpeechHooks the_hooks, SynthesizerMaker maker, std::chrono::milliseconds silence,
           std::chrono::milliseconds opening)
        : hooks(std::move(the_hooks)),
          make(std::move(maker)),
          longest_silence(silence),
          longest_opening(opening) {
        threads.push_back(std::make_unique<VoiceThread>(make(), Onset::cut));
        stream.Follow(threads.back()->Worker().stream);
    }

    /// Where the synthesizer hangs, another worker takes its place, with the texts that wait.
    void ReplaceHungWorker();
    VoiceWorker& Worker() const { return threads.back()->Worker(); }
    int Voices();
    /// Hands a text to the worker; shows it if it won't be spoken.
    void Submit(Utterance utterance);

    SpeechHooks hooks;
    SynthesizerMaker make;
    const std::chrono::milliseconds longest_silence;
    const std::chrono::milliseconds longest_opening;
    /// The last one works. Those before were left behind, and are kept: the audio thread may still
    /// read their streams.
    std::vector<std::unique_ptr<VoiceThread>> threads;
    PresentStream stream;
    const Engine* speaker = nullptr;  ///< who spoke last

  private:
    void Replace(std::unique_ptr<Synthesizer> synthesizer, Onset onset);

    int voices_ = -1;  ///< once counted
};

void VoiceSpeech::Shared::ReplaceHungWorker() {
    if (!Worker().SilentFor(longest_silence)) return;
    const VoiceWorker::Remains remains = Worker().GiveUp();
    if (threads.size() < most_threads) Replace(make(), Onset::cut);
    if (remains.in_work && hooks.unspoken) hooks.unspoken(*remains.in_work);
    for (const Utterance& utterance : remains.waiting) Submit(utterance);
}

void VoiceSpeech::Shared::Replace(std::unique_ptr<Synthesizer> synthesizer, Onset onset) {
    VoiceThread& old = *threads.back();
    threads.push_back(std::make_unique<VoiceThread>(std::move(synthesizer), onset));
    SpeechStream& fresh = Worker().stream;
    fresh.SetGain(old.Worker().stream.Gain());
    stream.Follow(fresh);
    old.LeaveBehind();
}

int VoiceSpeech::Shared::Voices() {
    if (voices_ >= 0) return voices_;
    const std::optional<int> counted = Worker().Voices(longest_opening);
    if (!counted) return most_voices;  // so that the settings keep what the player has chosen
    voices_ = *counted;
    if (voices_ == 0 && hooks.silent && hooks.silent()) {
        Replace(MakeSilence(), Onset::kept);
        voices_ = most_voices;
    }
    return voices_;
}

void VoiceSpeech::Shared::Submit(Utterance utterance) {
    ReplaceHungWorker();
    const std::string text = utterance.text;
    if (!Worker().Queue(std::move(utterance)) && hooks.unspoken) hooks.unspoken(text);
}

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
        shared_.ReplaceHungWorker();
        return shared_.Worker().Speaking() ? RunningState::speaking : RunningState::done;
    }
    double SecondsLeft() const override;

    void SetRate(int rate) override { rate_ = std::clamp(rate, slowest_rate, fastest_rate); }
    void SetEchoRate(int rate) override {
        SetRate(rate);
        rate_ += echo_quicker;
    }
    void SetVolume(int volume) override {
        volume_ = std::clamp(volume, 0, 100);
        ApplyVolume();
    }

    int GetVoicesCount() const override { return shared_.Voices(); }
    void SetVoice(int index) override {
        if (index < 0 || index >= GetVoicesCount() || index == voice_) return;
        voice_ = index;
        shared_.ReplaceHungWorker();
        shared_.Worker().Queue({"", rate_, voice_});  // Silent, and the voice is made ready.
    }

  private:
    void Purge() {
        shared_.ReplaceHungWorker();
        shared_.Worker().Drop();
    }
    void ApplyVolume() { shared_.Worker().stream.SetGain(static_cast<float>(volume_) / 100.0F); }
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
    shared_.Submit({std::string(text), rate_, voice_});
    if (flags == SpeakFlags::wait) Wait();
}

void VoiceSpeech::Engine::Wait() {
    try {
        while (Status() == RunningState::speaking) {
            shared_.Worker().stream.ended.SleepFor(patience_interval);
            if (shared_.hooks.patience) shared_.hooks.patience();
        }
    } catch (...) {
        Purge();
        throw;
    }
}

double VoiceSpeech::Engine::SecondsLeft() const {
    shared_.ReplaceHungWorker();
    VoiceWorker& worker = shared_.Worker();
    bool coming = worker.SamplesComing();
    double queued = static_cast<double>(worker.stream.Left()) / stream_rate;
    return coming ? std::max(queued, shortest_rest) : queued;
}

VoiceSpeech::VoiceSpeech(SpeechHooks hooks, SynthesizerMaker make,
                         std::chrono::milliseconds longest_silence,
                         std::chrono::milliseconds longest_opening)
    : shared_(std::make_unique<Shared>(std::move(hooks), std::move(make), longest_silence,
                                       longest_opening)) {}

VoiceSpeech::~VoiceSpeech() = default;

std::unique_ptr<SpeechEngine> VoiceSpeech::CreateEngine() {
    return std::make_unique<Engine>(*shared_);
}

Source& VoiceSpeech::Stream() {
    return shared_->stream;
}

bool VoiceSpeech::SamplesComing() const {
    shared_->ReplaceHungWorker();
    return shared_->Worker().SamplesComing();
}

}  // namespace tamlo
