#include "rehearsal/wave_length.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tamlo {

namespace {

/// A little-endian number at the front of some bytes.
std::int64_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::int64_t number = 0;
    for (std::size_t i = size; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return number;
}

struct Format {
    int rate = 0;
    std::int64_t frame_bytes = 0;
};

std::optional<Format> ReadFormat(std::string_view chunk) {
    constexpr std::int64_t pcm = 1;
    constexpr std::int64_t extensible = 0xFFFE;  // the true format stands 24 bytes into the chunk
    if (chunk.size() < 16) return {};
    std::int64_t kind = Number(chunk, 0, 2);
    if (kind == extensible && chunk.size() >= 26) kind = Number(chunk, 24, 2);
    const std::int64_t channels = Number(chunk, 2, 2);
    const std::int64_t rate = Number(chunk, 4, 4);
    const std::int64_t bits = Number(chunk, 14, 2);
    const std::int64_t frame_bytes = channels * bits / 8;
    const bool playable = kind == pcm && (channels == 1 || channels == 2) &&
                          (bits == 8 || bits == 16) && rate >= 100 && rate <= 200'000 &&
                          Number(chunk, 12, 2) == frame_bytes;
    if (!playable) return {};
    return Format{static_cast<int>(rate), frame_bytes};
}

/// Up to so many bytes from the stream's position.
template <std::size_t most>
std::string_view Take(std::istream& file, std::array<char, most>& room, std::int64_t size) {
    file.read(room.data(), std::min<std::int64_t>(size, most));
    return {room.data(), static_cast<std::size_t>(file.gcount())};
}

}  // namespace

std::optional<WaveLength> ReadWaveLength(std::istream& file) {
    file.seekg(0, std::ios::end);
    const std::int64_t end = file.tellg();
    file.seekg(0);
    std::array<char, 40> room{};
    const std::string_view head = Take(file, room, 12);
    if (head.size() < 12 || !head.starts_with("RIFF") || !head.ends_with("WAVE")) return {};

    std::optional<Format> format;
    for (std::int64_t at = 12; at + 8 <= end;) {
        file.clear();
        file.seekg(at);
        const std::string_view chunk_head = Take(file, room, 8);
        if (chunk_head.size() < 8) return {};
        const bool is_format = chunk_head.starts_with("fmt ");
        const bool is_data = chunk_head.starts_with("data");
        const std::int64_t stated = Number(chunk_head, 4, 4);
        if (is_format) {
            format = ReadFormat(Take(file, room, stated));
            if (!format) return {};
        } else if (is_data) {
            if (!format) return {};
            const std::int64_t bytes = std::min(stated, end - at - 8);
            return WaveLength{bytes / format->frame_bytes, format->rate};
        }
        at += 8 + stated + stated % 2;  // chunks begin at even offsets
    }
    return {};
}

}  // namespace tamlo
