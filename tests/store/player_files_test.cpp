// The bytes of the player's files: exact when written, safe when read.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "store/record_file.h"
#include "store/saved_game.h"
#include "store/settings_file.h"
#include "store/tagged_values.h"
#include "text/text_encoding.h"
#include "text/utf8.h"

namespace tamlo {
namespace {

using namespace std::string_literals;

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

TEST(SavedGameFile, IsExactToTheByte) {
    const std::string expected = Bytes({5, 0, 0,    0,   0, 0, 0,    0, 0xF8, 0x3F,  // 1.5
                                        2, 0, 2,    0,   2, 0, 0x2C, 1, 2,    0,    59,
                                        0, 5, 0,    0,   0, 0, 0,    0, 0,    0x44, 0x40,  // 40
                                        2, 0, 0xFF, 0x7F});
    EXPECT_EQ(EncodeSavedGame({1.5, 2, 300, 59, 40, 32767}), expected);
    const std::string more = EncodeSavedGame({1.5, 2, 300, 59, 40, 32768});
    EXPECT_EQ(more.substr(expected.size() - 4), Bytes({3, 0, 0, 0x80, 0, 0}));
    EXPECT_EQ(EncodeSavedGame({0, 0, -32769, 0, 0, 0}).substr(14, 6),
              Bytes({3, 0, 0xFF, 0x7F, 0xFF, 0xFF}));
    const auto read = DecodeSavedGame(more);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->npd, 32768);
    EXPECT_EQ(read->cash, 1.5);
    EXPECT_EQ(read->nsd, 40);
}

TEST(SavedGameFile, AcceptsEveryTagForEveryFieldAndAMissingCount) {
    std::string bytes = Bytes({3, 0, 7, 0, 0, 0});  // cash 7
    bytes += Bytes({4, 0, 0, 0, 0x20, 0x40});       // vehicle 2.5, single
    bytes += Bytes({0, 0, 0, 0});                   // hours and minutes, never set
    bytes += Bytes({2, 0, 59, 0});                  // seconds
    const auto five = DecodeSavedGame(bytes);
    ASSERT_TRUE(five);
    EXPECT_EQ(five->cash, 7);
    EXPECT_EQ(five->plast, 2);
    EXPECT_EQ(five->nhr, 0);
    EXPECT_EQ(five->nmt, 0);
    EXPECT_EQ(five->nsd, 59);
    EXPECT_EQ(five->npd, 0);
    AppendNumber(bytes, 11.5);
    ASSERT_TRUE(DecodeSavedGame(bytes));
    EXPECT_EQ(DecodeSavedGame(bytes)->npd, 12);
}

std::string Save(double cash, double plast, double nhr, double nmt, double nsd, double npd) {
    std::string bytes;
    for (const double value : {cash, plast, nhr, nmt, nsd, npd}) AppendNumber(bytes, value);
    return bytes;
}

TEST(SavedGameFile, RefusesWhatCanNotBeAGame) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    ASSERT_TRUE(DecodeSavedGame(Save(1, 1, 0, 0, 0, 0)));
    const std::string refused[] = {Save(-1, 1, 0, 0, 0, 0),
                                   Save(nan, 1, 0, 0, 0, 0),
                                   Save(INFINITY, 1, 0, 0, 0, 0),
                                   Save(1, 0, 0, 0, 0, 0),
                                   Save(1, 4, 0, 0, 0, 0),
                                   Save(1, 0.5, 0, 0, 0, 0),
                                   Save(1, 3.6, 0, 0, 0, 0),
                                   Save(1, 1, -1, 0, 0, 0),
                                   Save(1, 1, 1e12, 0, 0, 0),
                                   Save(1, 1, 0, 59.5, 0, 0),
                                   Save(1, 1, 0, -1, 0, 0),
                                   Save(1, 1, 0, 0, 60, 0),
                                   Save(1, 1, 0, 0, -1, 0),
                                   Save(1, 1, 0, 0, 0, -1),
                                   Save(1, 1, 0, 0, 0, 0) + Bytes({2}),
                                   Save(1, 1, 0, 0, 0, 0) + Bytes({2, 0, 1, 0}),
                                   "",
                                   "tamlo",
                                   Bytes({9, 0, 1, 0})};
    for (const std::string& bytes : refused) EXPECT_FALSE(DecodeSavedGame(bytes)) << bytes.size();
    const std::string whole = EncodeSavedGame({1.5, 2, 3, 4, 5, 6});
    const std::size_t without_count = whole.size() - 4;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(DecodeSavedGame(whole.substr(0, length)).has_value(), length == without_count)
            << "cut to " << length;
    }
}

TEST(RecordFile, IsExactToTheByteAndReadsBack) {
    const Record record{3, 4, 5.5, "Zo\u00EB", {2015, 3, 5}};
    std::string expected = Bytes({2, 0, 3, 0, 2, 0, 4, 0, 5,   0, 0, 0, 0,   0, 0, 0, 0x16, 0x40,
                                  3, 0, 3, 0, 0, 0, 2, 0, 'Z', 0, 2, 0, 'o', 0, 2, 0, 0xEB, 0});
    for (const double part : {3.0, 5.0, 2015.0}) AppendNumber(expected, part);
    EXPECT_EQ(EncodeRecord(record), expected);
    const auto read = DecodeRecord(expected + "what a longer record left behind");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name, record.name);
    EXPECT_EQ(read->seconds, 5.5);
    EXPECT_EQ(read->date.year, 2015);
    EXPECT_EQ(read->date.month, 3);
}

TEST(RecordFile, IsWrittenOverALongerOneWithoutShorteningIt) {
    EXPECT_EQ(OverwrittenBy("abcdef", "XYZ"), "XYZdef");
    EXPECT_EQ(OverwrittenBy("ab", "XYZ"), "XYZ");
}

TEST(RecordFile, RefusesWhatCanNotBeARecord) {
    const std::string good = EncodeRecord({1, 2, 3, "Al", {2020, 1, 31}});
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_FALSE(DecodeRecord(good.substr(0, length))) << length;
    }
    std::string long_name = good.substr(0, 18);
    AppendLarge(long_name, std::numeric_limits<std::int32_t>::max());
    EXPECT_FALSE(DecodeRecord(long_name + good));
    std::string negative = good.substr(0, 18);
    AppendLarge(negative, -1);
    EXPECT_FALSE(DecodeRecord(negative + good));
    EXPECT_FALSE(DecodeRecord(EncodeRecord({1, 60, 3, "Al", {2020, 1, 31}})));
    EXPECT_FALSE(DecodeRecord(EncodeRecord({1, 2, 60, "Al", {2020, 1, 31}})));
    EXPECT_FALSE(DecodeRecord(EncodeRecord({1, 2, 3, "Al", {2020, 13, 31}})));
}

TEST(RecordFile, OnlyAShorterTimeBeatsIt) {
    const Record old{2, 30, 15, "", {}};
    const struct {
        int hours, minutes;
        double seconds;
        bool shorter;
    } cases[] = {{2, 30, 15, false}, {2, 30, 14, true},  {2, 29, 59, true},
                 {1, 59, 59, true},  {2, 30, 16, false}, {3, 0, 0, false}};
    for (const auto& c : cases) {
        const Record own{c.hours, c.minutes, c.seconds, "", {}};
        EXPECT_EQ(own.ShorterThan(old), c.shorter) << c.hours << ":" << c.minutes;
    }
}

TEST(SettingsFile, IsExactToTheByte) {
    EXPECT_EQ(FormatSettings({0, 0, 100, -1200, 2}), " 0\r\n 0\r\n 100\r\n-1200\r\n 2\r\n");
    EXPECT_EQ(FormatSettings({1, -3, 100, 0, 1}), " 1\r\n-3\r\n 100\r\n 0\r\n 1\r\n");
}

TEST(SettingsFile, IsReadWhateverAnEditorOrADiskDidToIt) {
    const struct {
        std::string text;
        int nv, vr, vv, wavol, gnd;
    } cases[] = {
        {" 1\r\n 2\r\n 100\r\n 0\r\n 1\r\n", 1, 2, 100, 0, 1},
        {"1 \n-4 \n 55 \n-1200 \n 2 \n", 1, -4, 55, -1200, 2},
        {" 2\r 7\r 5\r-3500\r 2", 2, 7, 5, -3500, 2},
        {"\xEF\xBB\xBF 2\r\n 1\r\n", 2, 1, 100, 0, 1},
        {"", 0, 0, 100, 0, 1},
        {" 1\t\r\n2x\r\n\t50 \t", 1, 0, 50, 0, 1},
        {" 1\r\nfast\r\n\r\n-100\r\n 2\r\n", 1, 0, 100, -100, 2},
        {" 3\r\n 99\r\n 101\r\n 5\r\n 3\r\n", 0, 99, 100, 0, 1},
        {"-1\r\n-99\r\n-1\r\n-3600\r\n 0\r\n", 0, -99, 0, -3500, 1},
        {"99999999999\r\n2147483647\r\n", 0, 1000000000, 100, 0, 1},
        {"\0\xFF\xFE"s, 0, 0, 100, 0, 1},
    };
    for (const auto& c : cases) {
        const Settings read = ParseSettings(c.text, 3);
        EXPECT_EQ(read.nv, c.nv) << c.text;
        EXPECT_EQ(read.vr, c.vr) << c.text;
        EXPECT_EQ(read.vv, c.vv) << c.text;
        EXPECT_EQ(read.wavol, c.wavol) << c.text;
        EXPECT_EQ(read.gnd, c.gnd) << c.text;
    }
}

TEST(TextEncoding, KeysGiveTheCharactersOfWindows1252) {
    const struct {
        int code;
        const char* small;
    } cases[] = {{65, "a"},       {112, "p"},      {190, "\u00BE"}, {37, "%"},
                 {39, "'"},       {13, "\r"},      {138, "\u0161"}, {192, "\u00E0"},
                 {215, "\u00D7"}, {159, "\u00FF"}, {128, "\u20AC"}, {300, ""},
                 {-1, ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(FromWindows1252(LowerCase1252(c.code)), c.small) << c.code;
    }
    for (int code = 0; code < 256; ++code) {
        EXPECT_EQ(ToWindows1252(FromWindows1252(code)), code);
        const int small = LowerCase1252(code);
        if (small != code) {
            EXPECT_EQ(UpperCase1252(small), code);
        }
    }
    EXPECT_EQ(FromWindows1252(0), "\0"s);
    EXPECT_FALSE(ToWindows1252("\u4E2D"));
}

TEST(TextEncoding, FilesAreUtf8IfTheyCanBe) {
    EXPECT_EQ(DecodeText("Z\xFCrich"), "Z\u00FCrich");
    EXPECT_EQ(DecodeText("Z\u00FCrich"), "Z\u00FCrich");
    EXPECT_EQ(DecodeText("\xEF\xBB\xBFOak"), "Oak");
    EXPECT_EQ(DecodeText("\x80"), "\u20AC");
    for (const char* bad : {"\xC0\xAF", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\x80",
                            "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80"}) {
        EXPECT_FALSE(IsUtf8(bad)) << bad;
        EXPECT_TRUE(IsUtf8(DecodeText(bad)));
    }
    EXPECT_TRUE(IsUtf8("a\u00E9\u0800\uD7FF\u20AC\U0001F600\U0010FFFF"));
    EXPECT_EQ(CountCharacters("a\u00E9\u20AC\U0001F600"), 4u);
    EXPECT_EQ(LastCharacter("ab\u20AC"), 3u);
    EXPECT_EQ(LastCharacter("a\x80"), 1u);
    EXPECT_EQ(LastCharacter(""), 0u);
    EXPECT_EQ(FirstCharacter("\x80\x80"), 1u);
}

}  // namespace
}  // namespace tamlo
