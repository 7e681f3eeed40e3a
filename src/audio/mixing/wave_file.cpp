// Walks through the chunks of a RIFF file. Every number in it may be wrong, so sizes are always
// cut to the bytes that are really there.
#include "audio/mixing/wave_file.h"

#include <algorithm>

namespace tamlo {
namespace {

constexpr unsigned format_pcm = 1;
constexpr unsigned format_extensible = 0xFFFE;  // the true format stands 24 bytes into the chunk
constexpr unsigned lowest_rate = 100;
constexpr unsigned highest_rate = 200000;

unsigned Byte(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

unsigned Word(std::string_view bytes, std::size_t at) {
    return Byte(bytes, at) | Byte(bytes, at + 1) << 8U;
}

std::uint32_t Long(std::string_view bytes, std::size_t at) {
    return Word(bytes, at) | Word(bytes, at + 2) << 16U;
}

struct Format {
    unsigned channels = 0;
    unsigned rate = 0;
    unsigned bits = 0;

    std::size_t FrameBytes() const { return std::size_t{channels} * bits / 8; }
};

std::optional<Format> ReadFormat(std::string_view chunk) {
    if (chunk.size() < 16) return std::nullopt;
    unsigned kind = Word(chunk, 0);
    if (kind == format_extensible && chunk.size() >= 26) kind = Word(chunk, 24);
    const Format format{Word(chunk, 2), Long(chunk, 4), Word(chunk, 14)};
    const bool usable = kind == format_pcm && (format.channels == 1 || format.channels == 2) &&
                        (format.bits == 8 || format.bits == 16) && format.rate >= lowest_rate &&
                        format.rate <= highest_rate && Word(chunk, 12) == format.FrameBytes();
    if (!usable) return std::nullopt;
    return format;
}

WaveData Decode(std::string_view data, const Format& format) {
    WaveData wave;
    wave.rate = static_cast<int>(format.rate);
    wave.channels = static_cast<int>(format.channels);
    data = data.substr(0, data.size() - data.size() % format.FrameBytes());
    const std::size_t step = format.bits / 8;
    wave.samples.resize(data.size() / step);
    for (std::size_t i = 0; i < wave.samples.size(); ++i) {
        // 8-bit samples are unsigned, 16-bit samples signed.
        wave.samples[i] =
            step == 1 ? static_cast<std::int16_t>((static_cast<int>(Byte(data, i)) - 128) * 256)
                      : static_cast<std::int16_t>(Word(data, 2 * i));
    }
    return wave;
}

}  // namespace

std::optional<WaveData> ReadWave(std::string_view bytes) {
    if (bytes.size() < 12 || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE") {
        return std::nullopt;
    }
    std::optional<Format> format;
    std::string_view rest = bytes.substr(12);
    while (rest.size() >= 8) {
        const std::string_view id = rest.substr(0, 4);
        const std::uint32_t stated = Long(rest, 4);
        const std::string_view chunk = rest.substr(8, stated);
        if (id == "fmt ") {
            format = ReadFormat(chunk);
            if (!format) return std::nullopt;
        } else if (id == "data") {
            if (!format) return std::nullopt;
            return Decode(chunk, *format);
        }
        // Chunks begin at even offsets.
        const std::uint64_t length = std::uint64_t{8} + stated + stated % 2;
        rest.remove_prefix(static_cast<std::size_t>(std::min<std::uint64_t>(rest.size(), length)));
    }
    return std::nullopt;
}

}  // namespace tamlo
