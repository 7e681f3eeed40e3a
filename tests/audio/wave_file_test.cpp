// The wave reader: the formats it takes, and files that are cut, damaged or lie about themselves.
#include "audio/mixing/wave_file.h"

#include <gtest/gtest.h>

#include "wave_maker.h"

namespace tamlo {
namespace {

using Samples = std::vector<std::int16_t>;

std::string Sixteen(const Samples& samples) {
    std::string bytes;
    for (const std::int16_t sample : samples) {
        bytes += LittleEndian(static_cast<std::uint32_t>(sample), 2);
    }
    return bytes;
}

const std::string data = Chunk("data", Sixteen({1, -2, 32767, -32768}));
const std::string mono = FormatChunk(1, 22050, 16);

std::string Extensible(int true_kind) {
    return Chunk("fmt ", FormatChunk(1, 22050, 16, 0xFFFE).substr(8) + LittleEndian(22, 2) +
                             LittleEndian(16, 2) + LittleEndian(4, 4) +
                             LittleEndian(static_cast<std::uint32_t>(true_kind), 2) +
                             std::string(14, 'x'));
}

struct Readable {
    const char* what;
    std::string bytes;
    int rate;
    int channels;
    Samples samples;
};

TEST(WaveFile, ReadsWhatIsThere) {
    const Samples four = {1, -2, 32767, -32768};
    const std::vector<Readable> table = {
        {"16-bit mono", WaveFile(mono + data), 22050, 1, four},
        {"16-bit stereo", WaveFile(FormatChunk(2, 44100, 16) + data), 44100, 2, four},
        {"8-bit mono",
         WaveFile(FormatChunk(1, 8000, 8) + Chunk("data", std::string{'\x80', '\0', '\xFF'})),
         8000,
         1,
         {0, -32768, 32512}},
        {"8-bit stereo",
         WaveFile(FormatChunk(2, 100, 8) + Chunk("data", "\x80\x81")),
         100,
         2,
         {0, 256}},
        {"highest rate", WaveFile(FormatChunk(1, 200000, 16) + data), 200000, 1, four},
        {"longer format chunk", WaveFile(Extensible(1) + data), 22050, 1, four},
        {"chunks before, between and after",
         WaveFile(Chunk("JUNK", "odd") + mono + Chunk("LIST", "") + data + Chunk("data", "zz")),
         22050, 1, four},
        {"no frames", WaveFile(mono + Chunk("data", "")), 22050, 1, {}},
        {"half a frame at the end",
         WaveFile(FormatChunk(2, 8000, 16) + Chunk("data", Sixteen({1, 2, 3}))),
         8000,
         2,
         {1, 2}},
        {"cut in the data", WaveFile(mono + data).substr(0, 12 + 24 + 8 + 5), 22050, 1, {1, -2}},
        {"cut after the data's head", WaveFile(mono + data).substr(0, 12 + 24 + 8), 22050, 1, {}},
        {"size of the data never filled in",
         "RIFF" + LittleEndian(0, 4) + "WAVE" + mono + "data" + LittleEndian(0xFFFFFFFF, 4) +
             Sixteen({5, 6}),
         22050,
         1,
         {5, 6}},
    };
    for (const Readable& row : table) {
        const std::optional<WaveData> wave = ReadWave(row.bytes);
        ASSERT_TRUE(wave) << row.what;
        EXPECT_EQ(wave->rate, row.rate) << row.what;
        EXPECT_EQ(wave->channels, row.channels) << row.what;
        EXPECT_EQ(wave->samples, row.samples) << row.what;
        EXPECT_EQ(wave->Frames() * row.channels, static_cast<std::int64_t>(row.samples.size()));
    }
}

TEST(WaveFile, RefusesWhatItCannotTrust) {
    const std::string block_align_wrong = [] {
        std::string format = mono;
        format[8 + 12] = 3;
        return format;
    }();
    const std::vector<std::pair<const char*, std::string>> table = {
        {"nothing", ""},
        {"other magic", "RIFX" + WaveFile(mono + data).substr(4)},
        {"not a wave", "RIFF" + LittleEndian(4, 4) + "AVI " + mono + data},
        {"head only", WaveFile("")},
        {"no data", WaveFile(mono)},
        {"data before its format", WaveFile(data + mono)},
        {"format cut", WaveFile(mono + data).substr(0, 12 + 8 + 15)},
        {"format too short", WaveFile(Chunk("fmt ", "short") + data)},
        {"compressed", WaveFile(FormatChunk(1, 22050, 16, 2) + data)},
        {"floating point", WaveFile(FormatChunk(1, 22050, 32, 3) + data)},
        {"extensible, not PCM", WaveFile(Extensible(3) + data)},
        {"extensible, cut", WaveFile(FormatChunk(1, 22050, 16, 0xFFFE) + data)},
        {"no channel", WaveFile(FormatChunk(0, 22050, 16) + data)},
        {"three channels", WaveFile(FormatChunk(3, 22050, 16) + data)},
        {"24 bits", WaveFile(FormatChunk(1, 22050, 24) + data)},
        {"rate too low", WaveFile(FormatChunk(1, 99, 16) + data)},
        {"rate too high", WaveFile(FormatChunk(1, 200001, 16) + data)},
        {"frame size wrong", WaveFile(block_align_wrong + data)},
        {"chunk of 4 GB in front", WaveFile("JUNK" + LittleEndian(0xFFFFFFFF, 4) + mono + data)},
        {"chunk that would wrap around",
         WaveFile("JUNK" + LittleEndian(0xFFFFFFF8, 4) + mono + data)},
    };
    for (const auto& [what, bytes] : table) EXPECT_FALSE(ReadWave(bytes)) << what;
}

TEST(WaveFile, NeverReadsPastAnEndWhereverTheFileIsCut) {
    const std::string whole = WaveFile(Chunk("JUNK", "abc") + mono + data);
    const std::size_t sound = whole.size() - 8;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        // A copy of its own, so that reading past it is noticed by the sanitizers.
        const std::vector<char> cut(whole.begin(), whole.begin() + static_cast<long>(length));
        const auto wave = ReadWave({cut.data(), cut.size()});
        ASSERT_EQ(wave.has_value(), length >= sound) << length;
        if (!wave) continue;
        EXPECT_EQ(wave->samples.size(), (length - sound) / 2) << length;
    }
}

}  // namespace
}  // namespace tamlo
