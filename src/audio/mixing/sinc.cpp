// The kernels' tables, and their convolutions written for the instructions that processors have.
#include "audio/mixing/sinc.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

#include "audio/mixing/source.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace tamlo {
namespace {

constexpr int phase_bits = 8;
constexpr int phases = 1 << phase_bits;
constexpr int phase_shift = fixed_bits - phase_bits;

// First the points halfway between the samples are made, then a short kernel finds any point among
// twice as many samples. That takes half the work of one long kernel: the sharp edge between a
// tone and its image, which needs the length, is found once a sample instead of once a frame.
constexpr int pairs = 18;         // of samples around a halfway point
constexpr int around = 8;         // samples, and as many halfway points, around any other
constexpr int points_first = -4;  // the first of those points lies so many samples from the frame
constexpr int samples_first = -3;
static_assert(sinc_before == pairs - 1 - points_first);
static_assert(sinc_after == points_first + around - 1 + pairs);

// Images of tones up to 9/11 of the band stay below -99 dB, and the tones lose nothing.
constexpr double halfway_beta = 9.2;
constexpr double point_beta = 11.0;
constexpr double point_reach = 3.5;  // samples; no more than `around` covers wherever a frame lies

double BesselI0(double x) {
    double sum = 1;
    double term = 1;
    for (int k = 1; term > sum * 1e-17; ++k) {
        term *= x / (2 * k) * x / (2 * k);
        sum += term;
    }
    return sum;
}

// A sinc that is zero at every multiple of `spacing`, in a Kaiser window up to `reach`.
double Kernel(double distance, double spacing, double reach, double beta) {
    const double edge = distance / reach;
    if (std::abs(edge) >= 1) return 0;
    const double angle = std::numbers::pi * distance / spacing;
    const double sinc = angle == 0 ? 1 : std::sin(angle) / angle;
    return sinc * BesselI0(beta * std::sqrt(1 - edge * edge)) / BesselI0(beta);
}

// Weights of the samples around a frame, and of the points halfway between them.
struct Row {
    std::array<float, around> samples;
    std::array<float, around> points;
};

// Scales weights to a sum, so that a constant stays constant at every phase.
template <std::size_t size>
void Scale(const std::array<double, size>& weights, double sum, float* out) {
    double total = 0;
    for (const double weight : weights) total += weight;
    for (std::size_t i = 0; i < size; ++i) out[i] = static_cast<float>(weights[i] * sum / total);
}

// One row a phase, and one more so that every phase has a next one to interpolate towards: with
// 256 phases the error of that stays below -100 dB.
struct Table {
    alignas(64) std::array<Row, phases + 1> rows;
    // Each weight four times, as it is needed where nothing can spread it on the way.
    alignas(64) std::array<std::array<float, 4>, pairs> halfway;

    Table() {
        for (int phase = 0; phase <= phases; ++phase) Fill(rows.at(phase), phase);
        std::array<double, pairs> weights{};
        for (int pair = 0; pair < pairs; ++pair) {
            weights.at(pair) = Kernel(pair + 0.5, 1, pairs, halfway_beta);
        }
        std::array<float, pairs> scaled{};
        Scale(weights, 0.5, scaled.data());
        for (int pair = 0; pair < pairs; ++pair) halfway.at(pair).fill(scaled.at(pair));
    }

    static void Fill(Row& row, int phase) {
        const double at = static_cast<double>(phase) / phases;
        std::array<double, 2 * around> weights{};
        for (int i = 0; i < around; ++i) {
            weights.at(i) = Kernel(samples_first + i - at, 0.5, point_reach, point_beta);
            weights.at(around + i) =
                Kernel(points_first + i + 0.5 - at, 0.5, point_reach, point_beta);
        }
        std::array<float, 2 * around> scaled{};
        Scale(weights, 1, scaled.data());
        std::copy_n(scaled.begin(), around, row.samples.begin());
        std::copy_n(scaled.begin() + around, around, row.points.begin());
    }
};

const Table& KernelTable() {
    static const Table table;
    return table;
}

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

// Four values at a time are what every processor of the kind has.
using Four = float __attribute__((vector_size(16)));
using AliasingFour = float __attribute__((vector_size(16), may_alias));

inline Four Load(const float* from) {
    Four four;
    std::memcpy(&four, from, sizeof four);
    return four;
}

// Rows are aligned, which spares the processor an instruction for each load.
inline Four LoadAligned(const float* from) {
    return *reinterpret_cast<const AliasingFour*>(from);
}

inline void Store(Four four, float* to) {
    std::memcpy(to, &four, sizeof four);
}

void FillPortable(const Table& table, const float* samples, Halfway& halfway) {
    for (int begin = 0; begin < halfway.count; begin += around) {
        // The last ones may be made twice, but nothing beyond them is read.
        const int at = std::min(begin, halfway.count - around);
        const float* before = samples + halfway.first + at;
        const float* after = before + 1;
        Four low{};
        Four high{};
#pragma GCC unroll 18
        for (int pair = 0; pair < pairs; ++pair, --before, ++after) {
            const Four weight = LoadAligned(table.halfway[pair].data());
            low += weight * (Load(before) + Load(after));
            high += weight * (Load(before + 4) + Load(after + 4));
        }
        Store(low, halfway.points.data() + at);
        Store(high, halfway.points.data() + at + 4);
    }
}

inline Four WeighPortable(const Place& place) {
    Four at_row{};
    Four at_next{};
#pragma GCC unroll 2
    for (int i = 0; i < around; i += 4) {
        const Four samples = Load(place.samples + i);
        const Four points = Load(place.points + i);
        at_row += LoadAligned(place.row.samples.data() + i) * samples +
                  LoadAligned(place.row.points.data() + i) * points;
        at_next += LoadAligned(place.next.samples.data() + i) * samples +
                   LoadAligned(place.next.points.data() + i) * points;
    }
    return at_row + place.between * (at_next - at_row);
}

// Sums each of four vectors into one lane of the result.
inline Four SumEach(const Four* sums) {
    const Four low01 = __builtin_shufflevector(sums[0], sums[1], 0, 4, 1, 5);
    const Four high01 = __builtin_shufflevector(sums[0], sums[1], 2, 6, 3, 7);
    const Four low23 = __builtin_shufflevector(sums[2], sums[3], 0, 4, 1, 5);
    const Four high23 = __builtin_shufflevector(sums[2], sums[3], 2, 6, 3, 7);
    const Four halves01 = low01 + high01;
    const Four halves23 = low23 + high23;
    return __builtin_shufflevector(halves01, halves23, 0, 1, 4, 5) +
           __builtin_shufflevector(halves01, halves23, 2, 3, 6, 7);
}

void WalkPortable(const Table& table, const float* samples, const Halfway& halfway, Walk& given,
                  int frames, float* out) {
    Walk walk = given;
    for (; frames > 0; frames -= 4, out += 4) {
        const int made = std::min(frames, 4);
        Four sums[4] = {};
#pragma GCC unroll 4
        for (int frame = 0; frame < 4; ++frame) {
            if (frame >= made) break;
            sums[frame] = WeighPortable(PlaceAt(table, samples, halfway, walk.position));
            Advance(walk);
        }
        const Four values = SumEach(sums);
        std::memcpy(out, &values, static_cast<std::size_t>(made) * sizeof(float));
    }
    given = walk;
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

#if defined(__x86_64__)

#define TAMLO_AVX2 __attribute__((target("avx2,fma")))

TAMLO_AVX2 void FillAvx2(const Table& table, const float* samples, Halfway& halfway) {
    for (int begin = 0; begin < halfway.count; begin += around) {
        const int at = std::min(begin, halfway.count - around);
        const float* before = samples + halfway.first + at;
        const float* after = before + 1;
        // Two sums, so that one doesn't wait for the other.
        __m256 sums[2] = {_mm256_setzero_ps(), _mm256_setzero_ps()};
#pragma GCC unroll 18
        for (int pair = 0; pair < pairs; ++pair, --before, ++after) {
            sums[pair % 2] = _mm256_fmadd_ps(
                _mm256_broadcast_ss(table.halfway[pair].data()),
                _mm256_add_ps(_mm256_loadu_ps(before), _mm256_loadu_ps(after)), sums[pair % 2]);
        }
        _mm256_storeu_ps(halfway.points.data() + at, _mm256_add_ps(sums[0], sums[1]));
    }
}

// Sums each of eight vectors into one lane of the result: far fewer additions across lanes than
// one vector after the other.
TAMLO_AVX2 inline __m256 SumEach(const __m256* sums) {
    const __m256 pair01 = _mm256_hadd_ps(sums[0], sums[1]);
    const __m256 pair23 = _mm256_hadd_ps(sums[2], sums[3]);
    const __m256 pair45 = _mm256_hadd_ps(sums[4], sums[5]);
    const __m256 pair67 = _mm256_hadd_ps(sums[6], sums[7]);
    const __m256 low = _mm256_hadd_ps(pair01, pair23);
    const __m256 high = _mm256_hadd_ps(pair45, pair67);
    return _mm256_add_ps(_mm256_permute2f128_ps(low, high, 0x20),
                         _mm256_permute2f128_ps(low, high, 0x31));
}

TAMLO_AVX2 inline __m256 WeighAvx2(const Place& place) {
    const __m256 samples = _mm256_loadu_ps(place.samples);
    const __m256 points = _mm256_loadu_ps(place.points);
    const __m256 at_row =
        _mm256_fmadd_ps(samples, _mm256_load_ps(place.row.samples.data()),
                        _mm256_mul_ps(points, _mm256_load_ps(place.row.points.data())));
    const __m256 at_next =
        _mm256_fmadd_ps(samples, _mm256_load_ps(place.next.samples.data()),
                        _mm256_mul_ps(points, _mm256_load_ps(place.next.points.data())));
    return _mm256_fmadd_ps(_mm256_set1_ps(place.between), _mm256_sub_ps(at_next, at_row), at_row);
}

// Eight frames at a time, and what is left in the portable way.
TAMLO_AVX2 void WalkAvx2(const Table& table, const float* samples, const Halfway& halfway,
                         Walk& given, int frames, float* out) {
    Walk walk = given;
    for (; frames >= 8; frames -= 8, out += 8) {
        __m256 sums[8];
#pragma GCC unroll 8
        for (__m256& sum : sums) {
            sum = WeighAvx2(PlaceAt(table, samples, halfway, walk.position));
            Advance(walk);
        }
        _mm256_storeu_ps(out, SumEach(sums));
    }
    given = walk;
    WalkPortable(table, samples, halfway, given, frames, out);
}

#endif

}  // namespace

std::int64_t StepFor(int rate) {
    return (rate * fixed_one + stream_rate / 2) / stream_rate;
}

Instructions BestInstructions() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) return Instructions::avx2;
#endif
    return Instructions::portable;
}

Interpolator SelectInterpolator(Instructions instructions) {
    KernelTable();
#if defined(__x86_64__)
    if (instructions == Instructions::avx2) return Interpolate<FillAvx2, WalkAvx2>;
#endif
    static_cast<void>(instructions);
    return Interpolate<FillPortable, WalkPortable>;
}

Resampler::Resampler(int rate) : interpolate_(SelectInterpolator(BestInstructions())) {
    walk_.step = StepFor(rate);
    Reset();
}

void Resampler::Reset() {
    samples_.assign(sinc_before, 0.0F);
    walk_.position = sinc_before * fixed_one;
}

void Resampler::Process(const std::int16_t* samples, std::size_t count, std::vector<float>& out) {
    samples_.reserve(samples_.size() + count);
    for (std::size_t i = 0; i < count; ++i) {
        samples_.push_back(static_cast<float>(samples[i]) / 32768.0F);
    }
    Render(out);
}

void Resampler::Finish(std::vector<float>& out) {
    samples_.insert(samples_.end(), sinc_after, 0.0F);
    Render(out);
    Reset();
}

void Resampler::Render(std::vector<float>& out) {
    const auto usable = static_cast<std::int64_t>(samples_.size()) - sinc_after;
    const std::int64_t way = usable * fixed_one - walk_.position;
    if (way <= 0) return;
    const auto frames = static_cast<int>((way + walk_.step - 1) / walk_.step);
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(frames));
    interpolate_(samples_.data(), walk_, frames, out.data() + before);

    const std::int64_t done = (walk_.position >> fixed_bits) - sinc_before;
    samples_.erase(samples_.begin(), samples_.begin() + done);
    walk_.position -= done * fixed_one;
}

}  // namespace tamlo
