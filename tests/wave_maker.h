// Makes wave files, whole or chunk by chunk.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tamlo {

/// A number as `size` little-endian bytes.
inline std::string LittleEndian(std::uint32_t number, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
    return bytes;
}

/// A chunk with its head, and a padding byte if its length is odd.
inline std::string Chunk(std::string_view id, std::string_view content) {
    std::string bytes(id);
    bytes += LittleEndian(static_cast<std::uint32_t>(content.size()), 4);
    bytes += content;
    if (content.size() % 2 != 0) bytes += '\0';
    return bytes;
}

/// The format chunk: uncompressed, unless `kind` says otherwise.
inline std::string FormatChunk(int channels, int rate, int bits, int kind = 1) {
    const auto frame = static_cast<std::uint32_t>(channels * bits / 8);
    const auto frames = static_cast<std::uint32_t>(rate);
    return Chunk("fmt ", LittleEndian(static_cast<std::uint32_t>(kind), 2) +
                             LittleEndian(static_cast<std::uint32_t>(channels), 2) +
                             LittleEndian(frames, 4) + LittleEndian(frames * frame, 4) +
                             LittleEndian(frame, 2) +
                             LittleEndian(static_cast<std::uint32_t>(bits), 2));
}

/// A whole file of these chunks.
inline std::string WaveFile(std::string_view chunks) {
    return Chunk("RIFF", "WAVE" + std::string(chunks));
}

/// A mono 16-bit file of so many frames of silence.
inline std::string SilentWave(int rate, int frames) {
    return WaveFile(FormatChunk(1, rate, 16) +
                    Chunk("data", std::string(2 * static_cast<std::size_t>(frames), '\0')));
}

}  // namespace tamlo
