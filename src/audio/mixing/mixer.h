// The mixer: adds all playing sounds and the attached sources into the one audio stream.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "audio/mixing/change_bell.h"
#include "audio/mixing/handover.h"
#include "audio/mixing/limiter.h"
#include "audio/mixing/playhead.h"
#include "audio/mixing/source.h"
#include "audio/mixing/wave_file.h"
#include "services/sound.h"

namespace tamlo {

/// A sound in the mixer. The two atomic members tell the game's thread how far it has come;
/// everything else belongs to the audio thread.
class Track {
  public:
    /// Never with a wave of no frames.
    explicit Track(std::shared_ptr<const WaveData> wave) : wave_(std::move(wave)) {}

    /// The number of the last Play that has come to its end (see Mixer::Play).
    std::atomic<unsigned> ended{0};
    /// Frames from the start, as of the last block: an estimate for how long it will still take.
    std::atomic<std::int64_t> reached{0};

  private:
    friend class Mixer;

    struct State {
        Playhead head;
        Gains gains{1, 1};
        unsigned play = 0;   ///< number of the last Play
        unsigned ended = 0;  ///< and of the last that has come to its end
        bool playing = false;
        bool untouched = false;  ///< no frame has been made since it started
    };

    std::shared_ptr<const WaveData> wave_;
    State now_{Playhead(*wave_)};
    std::vector<State> marks_ = std::vector<State>(most_marks, now_);
    bool known_ = false;
    Track* next_ = nullptr;  ///< among those that the audio thread knows
};

/// Pure code that is pulled: by a sound card's callback, by a clock, by a test. Mix, Pass and what
/// renders ahead are for the one thread that pulls; everything else is for the game's thread, never
/// waits for the audio thread but in Detach, and takes effect with the next Mix or Rewind.
class Mixer {
  public:
    /// `changes`, if there is one, rings when a Rewind would make a difference.
    explicit Mixer(Instructions instructions = BestInstructions(),
                   std::shared_ptr<ChangeBell> changes = nullptr);
    /// Nobody may pull any more.
    ~Mixer();
    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    /// Writes the next `frames` frames to `stereo`, which are heard at once. Allocates nothing,
    /// frees nothing, waits for nothing. Sources are told whether the block is heard. What was
    /// rendered ahead and not settled is rendered anew.
    void Mix(float* stereo, int frames, bool heard = true) noexcept;
    /// Lets the time of `frames` frames pass that nobody hears: all moves on as with Mix, but the
    /// sounds are not made. When they are heard again, they fade in.
    void Pass(int frames) noexcept;

    // Rendering ahead of what is heard, for an output that can take back what it was given. It asks
    // for blocks long before they are heard, says how far it has been heard, and when the bell
    // of changes rings it takes back the rest. As real-time safe as Mix. What these return may be
    // "not now": ask again with the next block.

    /// Most frames that may be ahead.
    static constexpr int most_ahead = (most_marks - 6) * longest_piece;

    /// Writes the next `frames` frames, a multiple of `longest_piece`, as if nothing changed until
    /// they are heard.
    bool MixAhead(float* stereo, int frames, bool heard = true) noexcept;
    /// All but the last `ahead` frames have been heard: what ended in them has ended. How many
    /// those are that were not counted before.
    int Settle(int ahead) noexcept;
    /// All that is wanted by now comes into effect `ahead` frames before the end of what was
    /// rendered, or with the first frame that can still be changed. The frames returned, at most
    /// `ahead`, are to be rendered anew.
    std::optional<int> Rewind(int ahead) noexcept;

    /// The source is pulled with every block from now on, until Detach has returned.
    void Attach(Source& source);
    void Detach(Source& source);
    /// Frames since an attached source was last heard; may be asked on any thread.
    std::int64_t FramesOfQuiet() const { return quiet_.load(std::memory_order_relaxed); }

    /// The sound stands stopped at 0, at full volume and its own rate.
    Track& Add(std::shared_ptr<const WaveData> wave);
    /// Silences the sound and frees it. Every sound must be removed before the mixer goes.
    void Remove(Track& sound);
    /// Plays on from where the sound stands. `number` must differ from that of the Play before;
    /// it appears in `ended` once the sound is over, which a looping sound never is.
    void Play(Track& sound, PlayMode mode, unsigned number);
    /// Stops; the sound keeps its position.
    void Stop(Track& sound);
    /// `frame` must lie inside the sound.
    void Seek(Track& sound, std::int64_t frame);
    void SetGains(Track& sound, Gains gains);
    /// Sample frames a second, 100 to 200000.
    void SetFrequency(Track& sound, int frequency);

  private:
    struct Command {
        enum class Kind { play, stop, seek, gains, step, remove };
        Kind kind = Kind::stop;
        Track* sound = nullptr;
        std::int64_t value = 0;  ///< of seek: frame; of step: the step; of play: looping or not
        unsigned number = 0;     ///< of play
        Gains gains{};
        std::unique_ptr<Track> removed{};  ///< freed with the command, on the game's thread
        Command* next = nullptr;
    };

    static constexpr int tail_frames = stream_rate / 500;  // 2 ms
    static constexpr int sum_frames = longest_piece + tail_frames;

    using Sources = std::span<Source* const>;
    using Tail = std::array<float, tail_frames>;

    /// What it takes to go on from a frame of the stream, beside the tracks and sources.
    struct Mark {
        std::int64_t frame = 0;
        Tail left{};
        Tail right{};
        Limiter limiter{};
        std::int64_t quiet = 0;
    };

    void Send(std::unique_ptr<Command> command);
    static void Free(Command* list);

    Mark& MarkAt(std::int64_t number) { return marks_[Slot(number)]; }
    static std::size_t Slot(std::int64_t number) { return number % most_marks; }
    void TakeBack(Sources sources, std::int64_t frame) noexcept;
    void Remember(Sources sources) noexcept;
    void ReturnTo(Sources sources, std::int64_t number) noexcept;
    int SettleUpTo(Sources sources, std::int64_t frame) noexcept;

    void Obey() noexcept;
    void Obey(const Command& command) noexcept;
    void Start(Track& track, bool looping, unsigned number) noexcept;
    void Silence(Track::State& sound) noexcept;
    void Forget(Track& track) noexcept;
    void AddTail(const Playhead& head, int from) noexcept;
    void Render(Sources sources, float* stereo, int frames) noexcept;
    void MixSound(Track::State& sound, int frames) noexcept;
    static void PassOver(Track::State& sound, int frames) noexcept;
    static void End(Track::State& sound) noexcept;
    void AddSources(Sources sources, float* stereo, int frames) noexcept;

    Interpolator interpolate_;
    Handover<Command> commands_;
    Handover<Command> spent_;  ///< commands on their way back, to be freed
    const std::shared_ptr<ChangeBell> changes_;
    Track* tracks_ = nullptr;  ///< that have ever been played
    /// Sums of the coming piece and, behind it, of the tails of sounds that were cut off.
    std::array<float, sum_frames> left_{};
    std::array<float, sum_frames> right_{};
    Limiter limiter_;
    std::int64_t frame_ = 0;        ///< the next to be rendered
    std::int64_t quiet_since_ = 0;  ///< frames rendered since an attached source was heard

    /// The first is as far as the stream has been heard, the last where it has been rendered to.
    std::array<Mark, most_marks> marks_{};
    std::int64_t first_mark_ = 0;
    std::int64_t last_mark_ = 0;
    std::int64_t obeyed_at_ = 0;  ///< frame; what came before it can't be rendered again
    std::int64_t settled_ = 0;    ///< frames

    std::mutex sources_mutex_;  ///< the audio thread only tries it
    std::vector<Source*> sources_;
    std::atomic<std::int64_t> quiet_{0};
};

}  // namespace tamlo
