#include "rehearsal/wave_length.h"

#include <algorithm>
#include <array>

#include "audio/mixing/wave_file.h"

namespace tamlo {

std::optional<WaveLength> ReadWaveLength(std::istream& file) {
    file.seekg(0, std::ios::end);
    const std::int64_t end = file.tellg();
    std::array<char, 40> room{};
    const auto read = [&](std::uint64_t offset, std::size_t count) -> std::string_view {
        file.clear();
        file.seekg(static_cast<std::streamoff>(offset));
        file.read(room.data(), static_cast<std::streamsize>(std::min(count, room.size())));
        return {room.data(), static_cast<std::size_t>(file.gcount())};
    };
    if (end < 0) return {};
    const auto sound = FindSound(static_cast<std::uint64_t>(end), read);
    if (!sound) return {};
    return WaveLength{sound->frames, sound->rate};
}

}  // namespace tamlo
