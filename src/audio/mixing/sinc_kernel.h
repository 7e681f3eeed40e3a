// What the interpolators of all kinds of instructions have in common: the table of weights, and the
// walk in two steps. For the files of this folder only.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "audio/mixing/sinc.h"

namespace tamlo::sinc {

inline constexpr int phase_bits = 8;
inline constexpr int phases = 1 << phase_bits;
inline constexpr int phase_shift = fixed_bits - phase_bits;

// First the points halfway between the samples are made, then a short kernel finds any point among
// twice as many samples. That takes half the work of one long kernel: the sharp edge between a
// tone and its image, which needs the length, is found once a sample instead of once a frame.
inline constexpr int pairs = 18;  // of samples around a halfway point
inline constexpr int around = 8;  // samples, and as many halfway points, around any other
inline constexpr int points_first =
    -4;  // the first of those points lies so many samples from the frame
inline constexpr int samples_first = -3;
static_assert(sinc_before == pairs - 1 - points_first);
static_assert(sinc_after == points_first + around - 1 + pairs);

// Weights of the samples around a frame, and of the points halfway between them.
struct Row {
    std::array<float, around> samples;
    std::array<float, around> points;
};

// One row a phase, and one more so that every phase has a next one to interpolate towards: with
// 256 phases the error of that stays below -100 dB.
struct Table {
    alignas(64) std::array<Row, phases + 1> rows;
    // Each weight four times, as it is needed where nothing can spread it on the way.
    alignas(64) std::array<std::array<float, 4>, pairs> halfway;
};

/// The one table there is; the first call makes it.
const Table& KernelTable();

inline void Advance(Walk& walk) {
    walk.position += walk.step;
    walk.step += walk.slope;
}

// The points halfway between the samples that some frames of a walk lie among.
struct Halfway {
    static constexpr int capacity = 512;

    alignas(32) std::array<float, capacity> points;
    std::int64_t first = 0;  ///< the sample before the first point
    int count = 0;           ///< `around` or more

    /// Chooses how many frames have room, and which points they need. Takes one frame at least.
    int Reserve(const Walk& walk, int frames) {
        const std::int64_t highest = std::max(walk.step, walk.step + walk.slope * frames);
        const std::int64_t room = (capacity - around - 1) * fixed_one;
        if (highest > 0)
            frames = static_cast<int>(std::clamp<std::int64_t>(room / highest, 1, frames));
        Walk last = walk;
        last.Pass(frames - 1);
        first = (walk.position >> fixed_bits) + points_first;
        count = static_cast<int>((last.position >> fixed_bits) + points_first - first) + around;
        return frames;
    }
};

// What lies around a frame: the two rows of weights, how far it lies between them, the samples
// and the points that they weigh.
struct Place {
    const Row& row;
    const Row& next;
    float between;
    const float* samples;
    const float* points;
};

inline Place PlaceAt(const Table& table, const float* samples, const Halfway& halfway,
                     std::int64_t position) {
    const auto fraction = static_cast<std::uint32_t>(position);
    const Row& row = table.rows[fraction >> phase_shift];
    constexpr std::uint32_t rest_mask = (1U << phase_shift) - 1;
    constexpr float rest_unit = 1.0F / (1U << phase_shift);
    // Through int: the conversion from unsigned takes several instructions.
    const auto rest = static_cast<std::int32_t>(fraction & rest_mask);
    const std::int64_t at = position >> fixed_bits;
    return {row, *(&row + 1), static_cast<float>(rest) * rest_unit, samples + at + samples_first,
            halfway.points.data() + (at + points_first - halfway.first)};
}

/// An interpolator of the two steps as one kind of instructions takes them.
template <auto& Fill, auto& WalkAlong>
void Interpolate(const float* samples, Walk& walk, int frames, float* out) {
    const Table& table = KernelTable();
    Halfway halfway;
    while (frames > 0) {
        const int piece = halfway.Reserve(walk, frames);
        Fill(table, samples, halfway);
        WalkAlong(table, samples, halfway, walk, piece, out);
        out += piece;
        frames -= piece;
    }
}

/// The portable second step, for the frames that are left over by a wider one.
void WalkPortable(const Table& table, const float* samples, const Halfway& halfway, Walk& given,
                  int frames, float* out);

/// The interpolator for eight values at a time; null if this processor does not have them, or this
/// edition is not made for any that has.
Interpolator WideInterpolator();

}  // namespace tamlo::sinc
