// How long a wave file is, read from its header alone.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>

namespace tamlo {

struct WaveLength {
    std::int64_t frames = 0;  ///< whole sample frames that are really there
    int rate = 0;             ///< sample frames a second, 100 to 200000
};

/// Reads the header of a seekable stream. Nothing if it holds no wave file that the game could
/// play (see FindSound).
std::optional<WaveLength> ReadWaveLength(std::istream& file);

}  // namespace tamlo
