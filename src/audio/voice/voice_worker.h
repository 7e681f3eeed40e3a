// The voice's thread: it alone calls the synthesizer, takes the texts in turn and fills the speech
// stream, ahead of what is heard.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "audio/voice/speech_delivery.h"
#include "audio/voice/speech_stream.h"
#include "audio/voice/synthesizer.h"
#include "audio/voice/text_queue.h"

namespace tamlo {

/// What the game's thread and the voice's share. Every purge begins a new generation: what the
/// thread makes for an older one is thrown away, so that a purge waits for nothing.
class VoiceWorker {
  public:
    VoiceWorker(std::unique_ptr<Synthesizer> synthesizer, Onset onset);
    VoiceWorker(const VoiceWorker&) = delete;
    VoiceWorker& operator=(const VoiceWorker&) = delete;

    // The game's thread.

    /// Waits until the synthesizer is ready, at most `longest` from the start. Nothing if it is
    /// not: its voices are not known yet.
    std::optional<int> Voices(std::chrono::milliseconds longest);
    /// Queues a text. Any text: it is cleaned and worded on the voice's thread. False if it will
    /// not be spoken: there are no voices, or they have been given up.
    bool Queue(Utterance utterance);
    /// Forgets all texts and silences what is spoken.
    void Drop();
    /// Whether the synthesizer has owed a sign of life for so long. Opening may take it ten times
    /// that: it reads files.
    bool SilentFor(std::chrono::milliseconds time);
    /// The texts of a worker whose synthesizer hangs; it forgets them, and takes none until the
    /// synthesizer answers.
    struct Remains {
        std::optional<std::string> in_work;
        std::vector<Utterance> waiting;
    };
    Remains GiveUp();
    /// Whether a text waits, is being synthesized or has samples that have not been taken.
    bool Speaking();
    /// Whether samples are still to come, so that it is worth waiting for them.
    bool SamplesComing();
    /// Has Run return as soon as it can.
    void BeginToStop();
    /// Waits for that; false if it has not happened within a second.
    bool AwaitStop();
    /// Lowest scheduling priority for the thread.
    void LowerPriority();

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
    bool WantedLocked() const;
    bool TakeJob(Job& job);
    void SayAgain();
    void Synthesize(const Job& job);
    bool PutAll(std::span<const float> samples, std::uint64_t generation);
    bool WaitForRoom(std::uint64_t generation);
    bool IsCurrent(std::uint64_t generation) const { return generation_.load() == generation; }
    void Progress();

    std::mutex mutex_;  ///< never held while anything is synthesized or waited for
    TextQueue texts_;
    std::atomic<std::uint64_t> generation_{1};  ///< changed under the mutex
    std::uint64_t at_work_on_ = 0;              ///< generation of the text in work, or 0
    bool given_up_ = false;                     ///< until the synthesizer answers again
    bool stop_ = false;
    std::atomic<bool> waiting_for_room_{false};
    const SteadyTime started_;
    std::atomic<SteadyTime> progress_;  ///< last sign of life of the synthesizer
    std::atomic<int> voices_{-1};       ///< -1 until it is ready
    std::atomic<bool> finished_{false};
    std::atomic<int> thread_{0};  ///< the system's number, 0 before Run
    Wakeup ready_or_finished_;

    // The voice's thread's own.
    std::unique_ptr<Synthesizer> synthesizer_;
    const Onset onset_;
};

/// A VoiceWorker and its thread, which is left to itself if it cannot be stopped.
class VoiceThread {
  public:
    explicit VoiceThread(std::unique_ptr<Synthesizer> synthesizer, Onset onset);
    ~VoiceThread();

    VoiceWorker& Worker() const { return *worker_; }
    /// Nobody waits for the thread any more. The worker stays while its stream is pulled.
    void LeaveBehind();

  private:
    std::shared_ptr<VoiceWorker> worker_;
    std::thread thread_;
};

}  // namespace tamlo
