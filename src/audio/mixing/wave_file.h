// Wave files: bytes to sample frames.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tamlo {

/// A decoded wave file.
struct WaveData {
    int rate = 0;                       ///< sample frames a second, 100 to 200000
    int channels = 1;                   ///< 1 or 2
    std::vector<std::int16_t> samples;  ///< interleaved, whole frames

    std::int64_t Frames() const { return static_cast<std::int64_t>(samples.size()) / channels; }
};

/// Reads a whole file: PCM with 8 or 16 bits, mono or stereo. Unknown chunks are skipped; a file
/// that was cut off gives what is left of its sound. Nothing if it is no such file or damaged.
std::optional<WaveData> ReadWave(std::string_view bytes);

}  // namespace tamlo
