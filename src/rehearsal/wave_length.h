// The length of a wave file, read from its header only.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>

namespace tamlo {

struct WaveLength {
    std::int64_t frames = 0;  ///< complete sample frames that the file really contains
    int rate = 0;             ///< sample frames per second, 100 to 200000
};

/// Reads the header of a seekable stream. Nothing if it holds no wave file that the game could
/// play (see FindSound).
std::optional<WaveLength> ReadWaveLength(std::istream& file);

}  // namespace tamlo
