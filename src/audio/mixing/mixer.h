// The mixer: adds all playing sounds and the attached sources into the one audio stream.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "audio/mixing/change_bell.h"
#include "audio/mixing/handover.h"
#include "audio/mixing/playhead.h"
#include "audio/mixing/source.h"
#include "audio/mixing/state_history.h"
#include "audio/mixing/tracks.h"
#include "audio/mixing/wave_file.h"
#include "services/sound.h"

namespace tamlo {

class Mixer;

struct TrackRemover {
    void operator()(Track* track) const;
    Mixer* mixer = nullptr;
};
/// A sound in a mixer. It is silenced and freed with the handle, which must go before the mixer.
using TrackHandle = std::unique_ptr<Track, TrackRemover>;

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
    /// rendered ahead and not committed is rendered again.
    void Mix(float* stereo, int frames, bool heard = true) noexcept;
    /// Lets the time of `frames` frames pass that nobody hears: everything moves on as with Mix,
    /// but the sounds are not rendered. When they are heard again, they fade in.
    void Pass(int frames) noexcept;

    // Rendering ahead of what is heard, for an output that can take back what it was given. It asks
    // for blocks long before they are heard, says how far it has been heard, and when the bell of
    // changes rings it takes back the rest. As real-time safe as Mix. What these return may be "not
    // now": ask again with the next block.

    /// Most frames that may be ahead.
    static constexpr int most_ahead = (most_states - 6) * longest_piece;

    /// Writes the next `frames` frames, a multiple of `longest_piece`, as if nothing changed until
    /// they are heard.
    bool MixAhead(float* stereo, int frames, bool heard = true) noexcept;
    /// All but the last `ahead` frames have been heard: what ended in them has ended. Returns how
    /// many of them were not counted before.
    int Commit(int ahead) noexcept;
    /// Everything requested so far comes into effect `ahead` frames before the end of what was
    /// rendered, or with the first frame that can still be changed. The frames returned, at most
    /// `ahead`, are to be rendered again.
    std::optional<int> Rewind(int ahead) noexcept;

    /// The source is pulled with every block from now on, until Detach has returned.
    void Attach(Source& source);
    void Detach(Source& source);
    /// Frames since an attached source was last audible; may be asked on any thread.
    std::int64_t FramesOfQuiet() const { return quiet_.load(std::memory_order_relaxed); }

    /// The sound stands stopped at 0, at full volume and its own rate.
    TrackHandle Add(std::shared_ptr<const WaveData> wave);
    /// Plays on from where the sound stands. `number` must differ from that of the Play before;
    /// it appears in `ended` once the sound is over, which a looping sound never is.
    void Play(Track& track, PlayMode mode, unsigned number);
    /// Stops; the sound keeps its position.
    void Stop(Track& track);
    /// `frame` must lie inside the sound.
    void Seek(Track& track, std::int64_t frame);
    void SetGains(Track& track, Gains gains);
    /// Sample frames a second, 100 to 200000.
    void SetFrequency(Track& track, int frequency);

  private:
    friend struct TrackRemover;
    using Sources = std::span<Source* const>;

    void Send(TrackCommand command);
    static void Free(TrackCommand* list);
    void Obey() noexcept;

    void Save(Sources sources) noexcept;
    void GoBack(Sources sources, std::int64_t frame) noexcept;
    int CommitUpTo(Sources sources, std::int64_t frame) noexcept;
    void Render(Sources sources, float* stereo, int frames) noexcept;
    void AddSources(Sources sources, float* stereo, int frames) noexcept;

    Handover<TrackCommand> commands_;
    Handover<TrackCommand> spent_;  ///< commands on their way back, to be freed
    const std::shared_ptr<ChangeBell> changes_;
    std::mutex sources_mutex_;  ///< the audio thread only tries it
    std::vector<Source*> sources_;
    std::atomic<std::int64_t> quiet_{0};

    // The audio thread's own.
    StreamState now_;
    Tracks tracks_;
    StateHistory history_;
    std::int64_t obeyed_at_ = 0;  ///< frame; what came before it can't be rendered again
    std::int64_t committed_ = 0;  ///< frames
};

}  // namespace tamlo
