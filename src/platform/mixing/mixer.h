// The mixer: adds all playing sounds and the attached sources into the one audio stream.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/mixing/handover.h"
#include "platform/mixing/limiter.h"
#include "platform/mixing/playhead.h"
#include "platform/mixing/source.h"
#include "platform/mixing/wave_file.h"
#include "platform/sound.h"

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

    std::shared_ptr<const WaveData> wave_;
    Playhead head_{*wave_};
    Gains gains_{1, 1};
    unsigned play_ = 0;  ///< number of the last Play
    bool playing_ = false;
    bool untouched_ = false;  ///< no frame has been made since it started
    Track* next_ = nullptr;
};

/// Pure code that is pulled: by a sound card's callback, by a clock, by a test. Mix is for the
/// one thread that pulls; everything else is for the game's thread, never waits for the audio
/// thread but in Detach, and takes effect with the next Mix.
class Mixer {
  public:
    explicit Mixer(Instructions instructions = BestInstructions());
    /// Nobody may pull any more.
    ~Mixer();
    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    /// Writes the next `frames` frames to `stereo`. Allocates nothing, frees nothing, waits for
    /// nothing. Sources are told whether the block is heard.
    void Mix(float* stereo, int frames, bool heard = true) noexcept;
    /// Lets the time of `frames` frames pass that nobody hears: all moves on as with Mix, but the
    /// sounds are not made. When they are heard again, they fade in.
    void Pass(int frames) noexcept;

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

    void Send(std::unique_ptr<Command> command);
    static void Free(Command* list);

    void Obey() noexcept;
    void Obey(const Command& command) noexcept;
    void Start(Track& sound, bool looping, unsigned number) noexcept;
    void Silence(Track& sound) noexcept;
    void TakeOut(Track& sound) noexcept;
    void AddTail(const Playhead& head, int from) noexcept;
    void MixPiece(float* stereo, int frames) noexcept;
    void MixSound(Track& sound, int frames) noexcept;
    void PassOver(Track& sound, int frames) noexcept;
    void End(Track& sound) noexcept;
    void NoteProgress() noexcept;
    void AddSources(float* stereo, int frames, bool heard) noexcept;

    Interpolator interpolate_;
    Handover<Command> commands_;
    Handover<Command> spent_;  ///< commands on their way back, to be freed
    Track* playing_ = nullptr;
    /// Sums of the coming piece and, behind it, of the tails of sounds that were cut off.
    std::array<float, sum_frames> left_{};
    std::array<float, sum_frames> right_{};
    Limiter limiter_;

    std::mutex sources_mutex_;  ///< the audio thread only tries it
    std::vector<Source*> sources_;
    std::atomic<std::int64_t> quiet_{0};
};

}  // namespace tamlo
