// Walks through the chunks of a RIFF file. Every number in it may be wrong, so sizes are always
// cut to the bytes that are really there.
#include "audio/mixing/wave_file.h"

#include <algorithm>
#include <cstddef>

namespace tamlo {
namespace {

constexpr unsigned format_pcm = 1;
constexpr unsigned format_extensible = 0xFFFE;  // the true format stands 24 bytes into the chunk
constexpr std::size_t longest_format = 40;
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

/// The format, without the place of the sound.
std::optional<WaveLayout> ReadFormat(std::string_view chunk) {
    if (chunk.size() < 16) return std::nullopt;
    unsigned kind = Word(chunk, 0);
    if (kind == format_extensible && chunk.size() >= 26) kind = Word(chunk, 24);
    const unsigned channels = Word(chunk, 2);
    const std::uint32_t rate = Long(chunk, 4);
    const unsigned bits = Word(chunk, 14);
    const bool usable = kind == format_pcm && (channels == 1 || channels == 2) &&
                        (bits == 8 || bits == 16) && rate >= lowest_rate && rate <= highest_rate &&
                        Word(chunk, 12) == channels * bits / 8;
    if (!usable) return std::nullopt;
    return WaveLayout{static_cast<int>(rate), static_cast<int>(channels), static_cast<int>(bits)};
}

}  // namespace

std::optional<WaveLayout> FindSound(std::uint64_t size, const ReadBytes& read) {
    const std::string_view head = read(0, 12);
    if (head.size() < 12 || !head.starts_with("RIFF") || !head.ends_with("WAVE")) return {};
    std::optional<WaveLayout> found;
    for (std::uint64_t at = 12; at + 8 <= size;) {
        const std::string_view chunk = read(at, 8);
        if (chunk.size() < 8) return {};
        const bool is_format = chunk.starts_with("fmt ");
        const bool is_data = chunk.starts_with("data");
        const std::uint64_t stated = Long(chunk, 4);
        at += 8;
        if (is_format) {
            found = ReadFormat(read(at, std::min<std::uint64_t>(stated, longest_format)));
            if (!found) return {};
        } else if (is_data) {
            if (!found) return {};
            found->begin = at;
            const auto bytes = static_cast<std::int64_t>(std::min(stated, size - at));
            found->frames = bytes / found->FrameBytes();
            return found;
        }
        at += stated + stated % 2;  // chunks begin at even offsets
    }
    return {};
}

std::optional<WaveData> ReadWave(std::string_view bytes) {
    const auto layout = FindSound(bytes.size(), [bytes](std::uint64_t offset, std::size_t count) {
        return bytes.substr(static_cast<std::size_t>(offset), count);
    });
    if (!layout) return std::nullopt;
    const std::string_view data = bytes.substr(static_cast<std::size_t>(layout->begin));
    WaveData wave{layout->rate, layout->channels, {}};
    wave.samples.resize(static_cast<std::size_t>(layout->frames * layout->channels));
    for (std::size_t i = 0; i < wave.samples.size(); ++i) {
        // 8-bit samples are unsigned, 16-bit samples signed.
        wave.samples[i] =
            layout->bits == 8
                ? static_cast<std::int16_t>((static_cast<int>(Byte(data, i)) - 128) * 256)
                : static_cast<std::int16_t>(Word(data, 2 * i));
    }
    return wave;
}

}  // namespace tamlo
