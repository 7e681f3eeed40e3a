// Wave files: bytes to sample frames.
#pragma once

#include <cstdint>
#include <functional>
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

/// Where the sound of a file lies.
struct WaveLayout {
    int rate = 0;             ///< sample frames a second, 100 to 200000
    int channels = 1;         ///< 1 or 2
    int bits = 8;             ///< of a sample, 8 or 16
    std::uint64_t begin = 0;  ///< bytes from the start of the file
    std::int64_t frames = 0;  ///< whole sample frames that are really there

    int FrameBytes() const { return channels * bits / 8; }
};

/// Gives up to `count` bytes of the file from an offset on, valid until the next call.
using ReadBytes = std::function<std::string_view(std::uint64_t offset, std::size_t count)>;

/// Finds the sound in a file of `size` bytes: PCM with 8 or 16 bits, mono or stereo. Unknown chunks
/// are skipped; of a file that was cut off, what is left counts. Nothing if it is no such file or
/// damaged. Asks for 40 bytes at most.
std::optional<WaveLayout> FindSound(std::uint64_t size, const ReadBytes& read);

/// Decodes a whole file that FindSound accepts.
std::optional<WaveData> ReadWave(std::string_view bytes);

}  // namespace tamlo
