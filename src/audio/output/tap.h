// Where outputs take the stream from: the sound card, or a clock that stands in for it.
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>

#include "audio/mixing/mixer.h"

namespace tamlo {

enum class Output { card, clock };

/// Lets one output at a time move the mixer on. The card is in charge at first. If it is not, it
/// gets silence, so that a card that wakes up again cannot pull the stream twice as fast.
class Tap {
  public:
    explicit Tap(Mixer& mixer);

    /// Fills the card's block. Real-time safe, as Mixer::Mix is.
    void Pull(float* stereo, int frames) noexcept;
    /// The same for a card that asks for its blocks before they are heard: see Mixer. Not for a
    /// card that pulls as well.
    bool PullAhead(float* stereo, int frames) noexcept;
    void Commit(int ahead) noexcept;
    /// None must be rendered again if it is not the card's turn.
    std::optional<int> Rewind(int ahead) noexcept;
    /// For the clock: lets the time of so many frames pass. Nothing if it is not in charge.
    void Pass(int frames) noexcept;
    /// The card gets silence from now on, and no time passes; the mixer is no longer used once this
    /// has returned.
    void Close();

    /// For when the card is known to be gone. It takes over again by itself as soon as it pulls
    /// steadily. The sources are told that something went unheard, however soon that is.
    void PutClockInCharge() {
        unheard_ = true;
        in_charge_ = Output::clock;
    }
    Output InCharge() const { return in_charge_; }
    /// Time at that moment since the card last pulled more than was rewound, in charge or not;
    /// since the start if it never has.
    std::chrono::milliseconds CardSilence(std::chrono::steady_clock::time_point now) const;
    /// Frames taken from the mixer or passed so far.
    std::int64_t Frames() const { return frames_; }
    /// See Mixer::FramesOfQuiet.
    std::int64_t FramesOfQuiet() const { return quiet_; }

  private:
    using Nanoseconds = std::chrono::nanoseconds;

    static Nanoseconds Now();
    void NoteCardPull() noexcept;
    /// The right to use the mixer, empty if it is not this output's turn.
    std::unique_lock<std::mutex> TurnOf(Output output) noexcept;
    void Count(int frames) noexcept;

    Mixer* mixer_;
    std::mutex pulling_;  ///< the audio threads only try it
    std::atomic<Output> in_charge_{Output::card};
    std::atomic<bool> unheard_{false};  ///< the sources have not been told yet
    std::atomic<Nanoseconds> card_pulled_;
    int steady_pulls_ = 0;  ///< by the card while the clock is in charge
    int to_mix_again_ = 0;  ///< frames after a rewind; the card's thread only
    std::atomic<std::int64_t> frames_{0};
    std::atomic<std::int64_t> quiet_{0};
};

}  // namespace tamlo
