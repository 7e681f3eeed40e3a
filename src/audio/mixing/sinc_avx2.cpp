// Eight values at a time, as processors with AVX2 have them.
#include <immintrin.h>

#include "audio/mixing/sinc_kernel.h"

#define TAMLO_AVX2 __attribute__((target("avx2,fma")))

namespace tamlo::sinc {
namespace {

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

}  // namespace

Interpolator WideInterpolator() {
    const bool there = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return there ? Interpolate<FillAvx2, WalkAvx2> : nullptr;
}

}  // namespace tamlo::sinc
