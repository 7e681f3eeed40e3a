// The convolutions as every processor has them, and the resampler over them.
#include "audio/mixing/sinc.h"

#include <cstring>

#include "audio/mixing/sinc_kernel.h"
#include "audio/mixing/source.h"

namespace tamlo {
namespace sinc {
namespace {

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

}  // namespace

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

}  // namespace sinc

std::int64_t StepFor(int rate) {
    return (rate * fixed_one + stream_rate / 2) / stream_rate;
}

Instructions BestInstructions() {
    return sinc::WideInterpolator() != nullptr ? Instructions::avx2 : Instructions::portable;
}

Interpolator SelectInterpolator(Instructions instructions) {
    sinc::KernelTable();
    if (instructions == Instructions::avx2) return sinc::WideInterpolator();
    return sinc::Interpolate<sinc::FillPortable, sinc::WalkPortable>;
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
    samples_.erase(samples_.begin(), samples_.begin() + static_cast<std::ptrdiff_t>(done));
    walk_.position -= done * fixed_one;
}

}  // namespace tamlo
