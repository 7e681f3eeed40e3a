// Sounds at any rate, made into the stream's rate: interpolation by a windowed sinc.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tamlo {

/// Kernel taps before floor(point) ...
inline constexpr int sinc_before = 21;
/// ... and after it; floor(point) itself is one more.
inline constexpr int sinc_after = 21;
inline constexpr int sinc_span = sinc_before + 1 + sinc_after;

/// Points in a sound are counted in samples, in fixed point with 32 fractional bits, so
/// that a sound of any length takes exactly its time.
inline constexpr int fixed_bits = 32;
inline constexpr std::int64_t fixed_one = std::int64_t{1} << fixed_bits;

/// The step from one frame of the stream to the next in a sound of `rate` samples a second.
std::int64_t StepFor(int rate);

/// A walk through a sound, in fixed point. The step may change evenly, for a glide of the pitch.
struct Walk {
    std::int64_t position = 0;
    std::int64_t step = fixed_one;
    std::int64_t slope = 0;  ///< added to the step after every frame

    /// Goes so many frames on.
    void Pass(std::int64_t frames) {
        position += step * frames + slope * (frames * (frames - 1) / 2);
        step += slope * frames;
    }
};

/// Makes the next `frames` values of a walk and leaves the walk after them. For every point p on
/// the way, samples[floor(p) - sinc_before] to samples[floor(p) + sinc_after] must be readable.
/// Steps above 1 don't filter away what the stream can't hold.
using Interpolator = void (*)(const float* samples, Walk& walk, int frames, float* out);

enum class Instructions { portable, avx2 };

/// The best that this processor has.
Instructions BestInstructions();

/// `instructions` must not be beyond those of this processor. The first call makes the tables: call
/// it before the audio thread does.
Interpolator SelectInterpolator(Instructions instructions);

/// Turns a stream of 16-bit mono samples into the stream's rate, block by block. The result does
/// not depend on how the stream is cut into blocks, and it is not delayed: the first value stands
/// for the first sample. Allocates: not for the audio thread.
class Resampler {
  public:
    /// `rate` in samples a second, 1 to stream_rate.
    explicit Resampler(int rate);

    /// Appends to `out` all values, -1 to 1, that the samples so far allow: all but those of the
    /// last 21 samples.
    void Process(const std::int16_t* samples, std::size_t count, std::vector<float>& out);
    /// Ends the stream: appends the values still missing. The next samples begin a new stream.
    void Finish(std::vector<float>& out);
    /// Forgets the stream and begins a new one.
    void Reset();

  private:
    void Render(std::vector<float>& out);

    Interpolator interpolate_;
    Walk walk_;
    std::vector<float> samples_;  ///< what coming values may still need
};

}  // namespace tamlo
