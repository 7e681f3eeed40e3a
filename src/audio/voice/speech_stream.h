// The speech in the audio stream: a queue of samples between the voice's thread, which makes
// them, the game's thread, which may drop them, and the audio thread, which takes them.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "audio/mixing/source.h"
#include "services/wakeup.h"

namespace tamlo {

/// A ring of samples without a lock. Positions only ever grow: the maker writes at `written`, the
/// audio thread takes from `taken`, and what lies before `dropped` is silenced but for a short
/// faded tail, which is kept apart so that the next text's first samples are not delayed by it.
/// What is taken ahead of what is heard may be taken again: samples are kept until they are
/// settled.
class SpeechStream : public Source {
  public:
    /// The maker gets one second ahead: enough to bridge any delay of its own.
    static constexpr int most_ahead = stream_rate;
    /// More than that, so that there is room for a new text before the audio thread has passed
    /// over the dropped one.
    static constexpr int capacity = 4 * stream_rate;
    /// How long what is dropped takes to fade away, so that it does not click.
    static constexpr int tail_frames = stream_rate / 500;

    SpeechStream();

    // The maker's side.

    /// Samples that may be put in now.
    int Room() const noexcept;
    /// Puts mono samples, -1 to 1, after what was written; there must be room. They are heard
    /// only after Commit.
    void Put(std::span<const float> samples) noexcept;
    void Publish() noexcept;
    /// Forgets what was put and not committed.
    void Retract() noexcept;
    /// Has `woken` rung once, when at most `frames` are left.
    void RingWhenDownTo(int frames) noexcept;

    // The game's side, not at the same time as Commit.

    /// Silences all that was committed.
    void Drop() noexcept;
    /// 0 to 1, reached in a few milliseconds.
    void SetGain(float gain) noexcept;
    float Gain() const noexcept { return gain_target_.load(std::memory_order_relaxed); }
    /// Committed samples that have neither been taken nor dropped.
    int Left() const noexcept;

    // The position in the stream tells one text from another: the number of samples before it.

    /// Behind the last committed sample.
    std::uint64_t Written() const noexcept { return written_; }
    /// All before this position has been heard for certain: it was taken for a card that has gone
    /// on for a quarter of a second since. It stands while nobody hears what is taken.
    std::uint64_t HeardUpTo() const noexcept { return heard_up_to_; }
    /// Whether somebody hears the stream again. It stands still until the maker has taken the
    /// return, for which `woken` rings.
    bool Returned() const noexcept { return returned_; }
    bool TakeReturn() noexcept { return returned_.exchange(false); }

    // The audio thread's side.

    void BeginBlock(bool heard) noexcept override;
    void AddTo(float* stereo, int frames) noexcept override;
    void SaveState(int slot) noexcept override;
    void RestoreState(int slot) noexcept override { now_ = saved_[static_cast<std::size_t>(slot)]; }
    void Commit(int slot, int frames) noexcept override;
    void RingOnChange(ChangeBell* bell) noexcept override { changed_ = bell; }

    Wakeup woken;  ///< rung for the maker
    Wakeup ended;  ///< rung when the last sample has been taken

  private:
    /// What it takes to go on from one sample of the stream.
    struct State {
        std::uint64_t taken = 0;
        std::uint64_t written = 0;  ///< as far as has been heeded
        float gain = 1.0F;
        float gain_target = 1.0F;
        bool returned = false;
        std::array<float, tail_frames> tail{};
        int tail_left = 0;  ///< the samples still to be heard are the last of `tail`
    };

    void RingChange() noexcept;
    void NoteHeard(int frames) noexcept;
    void KeepTail(std::uint64_t to) noexcept;
    void AddTail(float* stereo, int frames) noexcept;
    void AddSamples(float* stereo, int frames) noexcept;

    std::vector<float> ring_;
    std::uint64_t put_ = 0;  ///< the maker's own
    std::atomic<std::uint64_t> written_{0};
    std::atomic<std::uint64_t> dropped_{0};
    std::atomic<std::uint64_t> taken_{0};  ///< for good
    std::atomic<bool> starving_{true};     ///< silence was added after all that was taken in
    std::atomic<int> ring_at_{-1};  ///< samples left at which the maker wants to be woken, or -1
    std::atomic<float> gain_target_{1.0F};
    std::atomic<std::uint64_t> heard_up_to_{0};
    std::atomic<bool> returned_{false};
    std::atomic<ChangeBell*> changed_{nullptr};
    // The audio thread's own:
    State now_;
    std::array<State, most_states> saved_{};
    bool unheard_ = false;          ///< nobody hears what is taken
    std::uint64_t next_heard_ = 0;  ///< position, the next for `heard_up_to_`
    int frames_since_ = 0;          ///< frames
};

}  // namespace tamlo
