// The chunks of a wave file.
#include "wave_reader.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace tamlo::soundsmith {

namespace {

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t count) {
    if (at + count > bytes.size()) throw std::runtime_error("a wave file cut short");
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return value;
}

// The body of the first chunk with that id.
std::string_view Chunk(std::string_view bytes, std::string_view id) {
    std::size_t at = 12;
    while (at + 8 <= bytes.size()) {
        const std::size_t size = Number(bytes, at + 4, 4);
        const std::string_view body = bytes.substr(at + 8, size);
        if (body.size() < size) break;
        if (bytes.substr(at, 4) == id) return body;
        at += 8 + size + size % 2;
    }
    throw std::runtime_error("a wave file without its " + std::string(id) + " chunk");
}

double SampleAt(std::string_view data, std::size_t index, int bits) {
    if (bits == 8) return (static_cast<unsigned char>(data[index]) - 128.0) / 128.0;
    return static_cast<std::int16_t>(Number(data, 2 * index, 2)) / 32768.0;
}

}  // namespace

Sound ReadWave(std::string_view bytes) {
    if (!bytes.starts_with("RIFF") || bytes.substr(8 < bytes.size() ? 8 : 0, 4) != "WAVE")
        throw std::runtime_error("not a wave file");
    const std::string_view format = Chunk(bytes, "fmt ");
    const auto bits = static_cast<int>(Number(format, 14, 2));
    if (Number(format, 0, 2) != 1 || Number(format, 2, 2) != 1 || (bits != 8 && bits != 16))
        throw std::runtime_error("not one channel of 8 or 16 bits");
    const std::string_view data = Chunk(bytes, "data");
    Sound sound{static_cast<int>(Number(format, 4, 4)), {}, false};
    sound.samples.resize(data.size() / static_cast<std::size_t>(bits / 8));
    for (std::size_t i = 0; i < sound.samples.size(); ++i)
        sound.samples[i] = SampleAt(data, i, bits);
    return sound;
}

}  // namespace tamlo::soundsmith
