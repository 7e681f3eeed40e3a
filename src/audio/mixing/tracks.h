// The sounds of the mixer, as the audio thread has them.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "audio/mixing/playhead.h"
#include "audio/mixing/source.h"
#include "audio/mixing/wave_file.h"

namespace tamlo {

/// One sound. The two atomic members tell the game's thread how far it has come; everything else
/// belongs to the audio thread.
class Track {
  public:
    /// `wave` must have at least one frame.
    explicit Track(std::shared_ptr<const WaveData> wave) : wave_(std::move(wave)) {}

    /// The number of the last Play that has come to its end (see Mixer::Play).
    std::atomic<unsigned> ended{0};
    /// Frames from the start, as of the last block: an estimate for how long it will still take.
    std::atomic<std::int64_t> reached{0};

  private:
    friend class Tracks;

    struct State {
        Playhead head;
        Gains gains{1, 1};
        unsigned play = 0;   ///< number of the last Play
        unsigned ended = 0;  ///< number of the last Play that has come to its end
        bool playing = false;
        bool untouched = false;  ///< no frame has been rendered since it started
    };

    std::shared_ptr<const WaveData> wave_;
    State now_{Playhead(*wave_)};
    std::vector<State> saved_ = std::vector<State>(most_states, now_);
    bool known_ = false;
    Track* next_ = nullptr;  ///< in the list of Tracks
};

/// What the game's thread asks of a track.
struct TrackCommand {
    enum class Kind { play, stop, seek, gains, step, remove };
    Kind kind = Kind::stop;
    Track* track = nullptr;
    std::int64_t value = 0;  ///< of seek: frame; of step: the step; of play: looping or not
    unsigned number = 0;     ///< of play
    Gains gains{};
    std::unique_ptr<Track> removed{};  ///< freed with the command, on the game's thread
    TrackCommand* next = nullptr;
};

/// All tracks that have ever been played. For the audio thread: allocates and frees nothing.
class Tracks {
  public:
    explicit Tracks(Interpolator interpolate) : interpolate_(interpolate) {}

    void Obey(const TrackCommand& command) noexcept;
    /// Adds the next frames, at most longest_piece.
    void AddTo(float* stereo, int frames) noexcept;
    /// Lets the time of any number of frames pass that nobody hears.
    void Pass(int frames) noexcept;

    // As in Source.
    void SaveState(int slot) noexcept;
    void RestoreState(int slot) noexcept;
    void Commit(int slot) noexcept;

  private:
    static constexpr int tail_frames = stream_rate / 500;  // 2 ms

    /// What is still to be heard of sounds that were cut off.
    struct Tails {
        std::array<float, tail_frames> left{};
        std::array<float, tail_frames> right{};
    };

    void Start(Track& track, bool looping, unsigned number) noexcept;
    void Silence(Track::State& track) noexcept;
    void Forget(Track& track) noexcept;
    void AddTail(const Playhead& head, float* left, float* right) const noexcept;
    void Render(Track::State& track, int frames) noexcept;
    static void PassOver(Track::State& track, int frames) noexcept;
    static void End(Track::State& track) noexcept;

    Interpolator interpolate_;
    Track* first_ = nullptr;
    Tails tails_;
    std::array<Tails, most_states> saved_{};
    /// The sums of a piece, and the tails after it.
    std::array<float, longest_piece + tail_frames> left_{};
    std::array<float, longest_piece + tail_frames> right_{};
};

}  // namespace tamlo
