// The voice's thread: it alone calls the synthesizer, takes the texts in turn and fills the
// speech stream, ahead of what is heard.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <span>
#include <thread>
#include <vector>

#include "platform/mixing/sinc.h"
#include "platform/voice/speech_stream.h"
#include "platform/voice/synthesizer.h"

namespace tamlo {

/// What the game's thread and the voice's share. Every purge begins a new generation: what the
/// thread makes for an older one is thrown away, so that a purge waits for nothing.
class VoiceWorker {
  public:
    explicit VoiceWorker(std::unique_ptr<Synthesizer> synthesizer);
    VoiceWorker(const VoiceWorker&) = delete;
    VoiceWorker& operator=(const VoiceWorker&) = delete;

    // The game's thread.

    /// Waits until the synthesizer is ready, but not for ever: one that hangs has no voices.
    int Voices();
    /// Queues a text. Any text: it is cleaned and worded on the voice's thread.
    void Speak(Utterance utterance);
    void Drop();
    /// Whether a text waits, is being synthesized or has samples that have not been taken.
    bool Speaking();
    /// Whether samples are still to come, so that it is worth waiting for them.
    bool SamplesComing();
    /// Has Run return as soon as it can; false if it has not done so within a second.
    bool Stop();

    /// For when there is no thread to Run it.
    void HaveNoVoices() { voices_ = 0; }

    SpeechStream stream;

    // The voice's thread.

    /// The thread's whole life.
    void Run();

  private:
    using SteadyTime = std::chrono::steady_clock::time_point;

    struct Job {
        Utterance utterance;
        std::uint64_t generation = 0;
    };

    void DropLocked();
    void GiveUpIfStuck();
    bool TakeJob(Job& job);
    void Synthesize(const Job& job);
    bool Deliver(std::span<const float> samples, std::uint64_t generation);
    bool PutAll(std::span<const float> samples, std::uint64_t generation);
    bool WaitForRoom(std::uint64_t generation);
    bool IsCurrent(std::uint64_t generation) const { return generation_.load() == generation; }
    void Progress();

    std::mutex mutex_;  ///< never held while anything is synthesized or waited for
    std::deque<Job> jobs_;
    std::atomic<std::uint64_t> generation_{1};  ///< changed under the mutex
    std::uint64_t at_work_on_ = 0;              ///< generation of the text in work, or 0
    bool stuck_ = false;                        ///< the text in work has been given up
    bool stop_ = false;
    std::atomic<bool> waiting_for_room_{false};
    const SteadyTime started_;
    std::atomic<SteadyTime> progress_;  ///< last sign of life of the synthesizer
    std::atomic<int> voices_{-1};       ///< -1 until it is ready
    std::atomic<bool> finished_{false};
    Wakeup ready_or_finished_;

    // The voice's thread's own.
    std::unique_ptr<Synthesizer> synthesizer_;
    std::vector<float> samples_;
    bool onset_found_ = false;  ///< the text in work has come to its first audible sample
};

/// A VoiceWorker and its thread, which is left to itself if it cannot be stopped.
class VoiceThread {
  public:
    explicit VoiceThread(std::unique_ptr<Synthesizer> synthesizer);
    ~VoiceThread();

    VoiceWorker* operator->() const { return worker_.get(); }

  private:
    std::shared_ptr<VoiceWorker> worker_;
    std::thread thread_;
};

}  // namespace tamlo
