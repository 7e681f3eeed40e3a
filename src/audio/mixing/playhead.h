// One sound being played: where it stands, how fast it moves, how loud it is in each ear.
#pragma once

#include <cstdint>

#include "audio/mixing/sinc.h"
#include "audio/mixing/wave_file.h"

namespace tamlo {

/// Most frames that are rendered in one piece.
inline constexpr int longest_piece = 256;

/// Gains of the two ears, 0 to 1.
struct Gains {
    float left = 0;
    float right = 0;
};

/// Gains for a volume (0 to -10000) and a pan (-10000 to 10000) in hundredths of a decibel;
/// values outside are brought into range.
Gains GainsFor(int volume, int pan);

/// Light and copyable: a copy can render a tail of its own while the original stays where it is.
/// Used on the audio thread: allocates nothing.
class Playhead {
  public:
    /// `wave` must outlive the playhead and have at least one frame.
    explicit Playhead(const WaveData& wave);

    std::int64_t Position() const { return walk_.position; }
    void SetPosition(std::int64_t frame) { walk_.position = frame * fixed_one; }
    void SetLooping(bool looping) { looping_ = looping; }
    bool Looping() const { return looping_; }

    /// The gains from now on, after a glide over so many frames (0: at once).
    void SetGains(Gains gains, int glide);
    /// The same for the step from one frame to the next.
    void SetStep(std::int64_t step, int glide);

    /// Whether a sound played once is over.
    bool AtEnd() const;
    /// Frames until a sound played once is over; `limit` if it is not over by then.
    int FramesLeft(int limit) const;
    /// Adds the next frames, at most longest_piece, and moves on. Beyond the ends of a sound
    /// played once there is silence.
    void Render(Interpolator interpolate, float* left, float* right, int frames);
    /// Moves on as Render does, for frames that nobody hears; there may be any number of them.
    void Pass(int frames);

  private:
    struct Glide {
        float value = 0;
        float slope = 0;
        float target = 0;

        void Begin(float goal, int frames);
        void Advance(int frames, bool arrived);
        void Add(const float* values, int frames, float* out) const;
    };

    int LengthOfPiece(int frames) const;
    void RenderPiece(Interpolator interpolate, float* left, float* right, int frames) const;
    void MoveOn(int frames);
    void Gather(std::int64_t first, int count, int channel, float* out) const;
    void Copy(std::int64_t first, int count, int channel, float* out) const;

    const WaveData* wave_;
    Walk walk_;
    bool looping_ = false;
    std::int64_t target_step_;
    int step_glide_ = 0;  ///< frames left of the glide
    Glide left_;
    Glide right_;
    int gain_glide_ = 0;  ///< frames left of the glide
};

}  // namespace tamlo
