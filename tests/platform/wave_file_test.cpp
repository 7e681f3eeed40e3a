// The wave reader: the formats it takes, and files that are cut, damaged or lie about themselves.
#include "platform/mixing/wave_file.h"

#include <gtest/gtest.h>

#include "platform/mixing_signals.h"

namespace tamlo {
namespace {

using Samples = std::vector<std::int16_t>;

std::string Sixteen(const Samples& samples) {
    std::string bytes;
    for (const std::int16_t sample : samples) {
        bytes += Number(static_cast<std::uint32_t>(sample), 2);
    }
    return bytes;
}

const std::string data = Chunk("data", Sixteen({1, -2, 32767, -32768}));
const std::string mono = FormatChunk(1, 22050, 16);

std::string Extensible(int true_kind) {
    return Chunk("fmt ", FormatChunk(1, 22050, 16, 0xFFFE).substr(8) + Number(22, 2) +
                             Number(16, 2) + Number(4, 4) +
                             Number(static_cast<std::uint32_t>(true_kind), 2) +
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
        {"16-bit mono", Riff(mono + data), 22050, 1, four},
        {"16-bit stereo", Riff(FormatChunk(2, 44100, 16) + data), 44100, 2, four},
        {"8-bit mono",
         Riff(FormatChunk(1, 8000, 8) + Chunk("data", {'\x80', '\0', '\xFF'})),
         8000,
         1,
         {0, -32768, 32512}},
        {"8-bit stereo",
         Riff(FormatChunk(2, 100, 8) + Chunk("data", "\x80\x81")),
         100,
         2,
         {0, 256}},
        {"highest rate", Riff(FormatChunk(1, 200000, 16) + data), 200000, 1, four},
        {"longer format chunk", Riff(Extensible(1) + data), 22050, 1, four},
        {"chunks before, between and behind",
         Riff(Chunk("JUNK", "odd") + mono + Chunk("LIST", "") + data + Chunk("data", "zz")), 22050,
         1, four},
        {"no frames", Riff(mono + Chunk("data", "")), 22050, 1, {}},
        {"half a frame at the end",
         Riff(FormatChunk(2, 8000, 16) + Chunk("data", Sixteen({1, 2, 3}))),
         8000,
         2,
         {1, 2}},
        {"cut in the data", Riff(mono + data).substr(0, 12 + 24 + 8 + 5), 22050, 1, {1, -2}},
        {"cut behind the data's head", Riff(mono + data).substr(0, 12 + 24 + 8), 22050, 1, {}},
        {"size of the data never filled in",
         "RIFF" + Number(0, 4) + "WAVE" + mono + "data" + Number(0xFFFFFFFF, 4) + Sixteen({5, 6}),
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
        {"other magic", "RIFX" + Riff(mono + data).substr(4)},
        {"not a wave", "RIFF" + Number(4, 4) + "AVI " + mono + data},
        {"head only", Riff("")},
        {"no data", Riff(mono)},
        {"data before its format", Riff(data + mono)},
        {"format cut", Riff(mono + data).substr(0, 12 + 8 + 15)},
        {"format too short", Riff(Chunk("fmt ", "short") + data)},
        {"compressed", Riff(FormatChunk(1, 22050, 16, 2) + data)},
        {"floating point", Riff(FormatChunk(1, 22050, 32, 3) + data)},
        {"extensible, not PCM", Riff(Extensible(3) + data)},
        {"extensible, cut", Riff(FormatChunk(1, 22050, 16, 0xFFFE) + data)},
        {"no channel", Riff(FormatChunk(0, 22050, 16) + data)},
        {"three channels", Riff(FormatChunk(3, 22050, 16) + data)},
        {"24 bits", Riff(FormatChunk(1, 22050, 24) + data)},
        {"no rate", Riff(FormatChunk(1, 0, 16) + data)},
        {"rate too high", Riff(FormatChunk(1, 200001, 16) + data)},
        {"frame size wrong", Riff(block_align_wrong + data)},
        {"chunk of 4 GB in front", Riff("JUNK" + Number(0xFFFFFFFF, 4) + mono + data)},
        {"chunk that would wrap around", Riff("JUNK" + Number(0xFFFFFFF8, 4) + mono + data)},
    };
    for (const auto& [what, bytes] : table) EXPECT_FALSE(ReadWave(bytes)) << what;
}

TEST(WaveFile, NeverReadsPastAnEndWhereverTheFileIsCut) {
    const std::string whole = Riff(Chunk("JUNK", "abc") + mono + data);
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
