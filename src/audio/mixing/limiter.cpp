// The limiter's curve and its recovery.
#include "audio/mixing/limiter.h"

#include <algorithm>
#include <cmath>

namespace tamlo {
namespace {

constexpr float threshold = 0.70795F;  // -3 dBFS
// -1.5 dBFS: between samples the wave rises higher, and a device that turns it into another rate
// must not clip.
constexpr float ceiling = 0.84140F;
// A peak is forgotten at 20 dB in about 0.2 s: slow enough not to follow a bass wave, quick
// enough that the voice is itself again by the next syllable.
constexpr float recovery = 0.99976F;

float Highest(const float* samples, int count) {
    float highest = 0;
    for (int i = 0; i < count; ++i) highest = std::max(highest, std::abs(samples[i]));
    return highest;
}

// Bends what lies above the threshold into the rest of the range; meets it without a corner.
float Bend(float peak) {
    constexpr float room = ceiling - threshold;
    return threshold + room * std::tanh((peak - threshold) / room);
}

}  // namespace

void Limiter::Process(float* stereo, int frames) noexcept {
    if (peak_ == 0 && Highest(stereo, 2 * frames) <= threshold) return;
    for (int frame = 0; frame < frames; ++frame) {
        float* ears = stereo + 2 * frame;
        const float level = Highest(ears, 2);
        peak_ = std::max(level, peak_ * recovery);
        if (peak_ <= threshold) {
            peak_ = 0;
            continue;
        }
        const float gain = Bend(peak_) / peak_;
        ears[0] *= gain;
        ears[1] *= gain;
    }
}

}  // namespace tamlo
