// Bytes as terminals send them, and the keys that the game gets, turn by turn.
#include <gtest/gtest.h>

#include <string>

#include "linux/terminal/editor_choice.h"
#include "linux/terminal/terminal_keys.h"
#include "text/printable.h"

namespace tamlo {
namespace {

using std::chrono::milliseconds;
using Time = TerminalKeys::Time;

/// Keys of the coming turns as text, until nothing waits any more.
std::string Turns(TerminalKeys& keys) {
    std::string turns;
    while (keys.Waiting()) {
        const std::optional<int> key = keys.Take();
        if (key) turns += std::to_string(*key) + ' ';
    }
    return turns;
}

std::string Decoded(std::string_view bytes, Gaps gaps = Gaps::kept) {
    TerminalKeys keys(gaps);
    keys.Feed(bytes, Time(0));
    return Turns(keys);
}

struct Case {
    std::string_view bytes;
    std::string turns;
};

TEST(TerminalKeysTest, TypedKeys) {
    const Case cases[] = {
        {"az", "65 90 "},
        {"A", "16 65 "},
        {"Ab", "16 65 66 "},
        {"AB", "16 65 16 66 "},
        {"019 ", "48 49 57 32 "},
        {"!?", "16 49 16 191 "},
        {".,;'-=[]\\/`", "190 188 186 222 189 187 219 221 220 191 192 "},
        {"\r\n\t", "13 13 9 "},
        {"\x7f\b", "8 8 "},
        {"\x01\x03\x04\x1a\x1f", ""},
        {std::string_view("\0", 1), ""},
        {"\xc3\xa9\xe2\x82\xac\xff\x9b", ""},
    };
    for (const Case& c : cases) EXPECT_EQ(Decoded(c.bytes), c.turns) << c.bytes;
}

TEST(TerminalKeysTest, SequencesOfTheCommonTerminals) {
    const Case cases[] = {
        {"\x1b[A\x1b[B\x1b[C\x1b[D", "38 40 39 37 "},
        {"\x1bOA\x1bOB\x1bOC\x1bOD", "38 40 39 37 "},
        {"\x1b[1;2A\x1b[1;5D\x1b[a\x1bOd\x1bO5C", "38 37 38 37 39 "},
        {"\x1bOP\x1bOQ\x1bOR\x1bOS", "112 113 114 115 "},
        {"\x1b[1;2P\x1b[1;3S", "112 115 "},
        {"\x1b[11~\x1b[12~\x1b[13~\x1b[14~", "112 113 114 115 "},
        {"\x1b[[A\x1b[[B\x1b[[C\x1b[[D\x1b[[E", "112 113 114 115 116 "},
        {"\x1b[15~\x1b[17~\x1b[18~\x1b[19~\x1b[20~\x1b[21~\x1b[23~\x1b[24~",
         "116 117 118 119 120 121 122 123 "},
        {"\x1b[15;2~\x1b[11$\x1b[11^\x1b[11@", "116 112 112 112 "},
        {"\x1b[H\x1b[F\x1bOH\x1bOF\x1b[1~\x1b[4~\x1b[7~\x1b[8~", "36 35 36 35 36 35 36 35 "},
        {"\x1b[2~\x1b[3~\x1b[5~\x1b[6~\x1b[Z", "45 46 33 34 9 "},
        {"\x1bOM\x1bOp\x1bOy\x1bOk", "13 96 105 107 "},
        {"\x1b[99~\x1b[~\x1b[1x\x1b[I\x1b[200~\x1b[99999999999999999999~a", "65 "},
        {"\x1b[<0;1;1M\x1b[?1;2cb", "66 "},
        {"\x1b[1;\rA", "13 16 65 "},
        {"\x1b[1;\x1b[A", "38 "},
        {"\x1b\x1b[A", "27 38 "},
        {"\x1b\x1b\x1b[A", "27 27 38 "},
        {"\x1b"
         "a\x1b\r",
         "65 13 "},
    };
    for (const Case& c : cases) EXPECT_EQ(Decoded(c.bytes), c.turns) << c.bytes.substr(1);
    EXPECT_EQ(Decoded("\x1b[" + std::string(100000, '1') + "Ab"), "66 ");
}

TEST(TerminalKeysTest, APipeTellsNothingByGaps) {
    const Case cases[] = {
        {"\x1b"
         "a\x1b\r",
         "27 65 27 13 "},
        {"\x1b[A", "38 "},
        {"a\r\nb\n\nc\r\r", "65 13 66 13 13 67 13 13 "},
    };
    for (const Case& c : cases) EXPECT_EQ(Decoded(c.bytes, Gaps::lost), c.turns) << c.bytes;
    TerminalKeys keys(Gaps::lost);
    keys.Feed("\x1b", Time(0));
    keys.Finish();
    EXPECT_EQ(Turns(keys), "27 ");
}

TEST(TerminalKeysTest, ALoneEscapeIsKnownAfter40Milliseconds) {
    TerminalKeys keys(Gaps::kept);
    keys.Feed("\x1b", milliseconds(1000));
    EXPECT_EQ(keys.Deadline(), Time(milliseconds(1040)));
    keys.Settle(milliseconds(1039));
    EXPECT_EQ(Turns(keys), "");
    keys.Settle(milliseconds(1040));
    EXPECT_EQ(Turns(keys), "27 ");
    EXPECT_EQ(keys.Deadline(), std::nullopt);

    // A sequence in pieces, each within the time.
    int now = 2000;
    for (const char* piece : {"\x1b", "[", "1", "5", "~"}) {
        keys.Settle(milliseconds(now));
        keys.Feed(piece, milliseconds(now));
        now += 20;
    }
    EXPECT_EQ(Turns(keys), "116 ");

    // What was cut: Alt with a bracket, and nothing.
    keys.Feed("\x1b[", milliseconds(3000));
    keys.Settle(milliseconds(3100));
    keys.Feed("\x1b[1", milliseconds(3200));
    keys.Settle(milliseconds(3300));
    EXPECT_EQ(Turns(keys), "219 ");
}

TEST(TerminalKeysTest, KeysAreThreeTurnsApart) {
    TerminalKeys keys(Gaps::kept);
    keys.Feed("A1", Time(0));
    std::string turns;
    for (int turn = 0; turn < 8; ++turn) {
        if (turn == 4) keys.Feed("b", Time(0));
        turns += std::to_string(keys.Take().value_or(0)) + ' ';
    }
    EXPECT_EQ(turns, "16 0 0 65 0 0 49 0 ");
    keys.Take();
    EXPECT_EQ(keys.Take(), 66);
}

TEST(EditorChoiceTest, SplitsTheVariablesAtBlanks) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(SplitAtBlanks("  emacs -nw\t--quick "), (Words{"emacs", "-nw", "--quick"}));
    EXPECT_EQ(SplitAtBlanks("'a b';c$(d)"), (Words{"'a", "b';c$(d)"}));
    EXPECT_EQ(SplitAtBlanks(" \t"), Words());
    EXPECT_EQ(EditorCommands(" ", "ed -s", "/f i"),
              (std::vector<Words>{{"ed", "-s", "/f i"}, {"nano", "/f i"}, {"vi", "/f i"}}));
    EXPECT_EQ(EditorCommands("v", "", "/f").front(), (Words{"v", "/f"}));
}

TEST(PrintedLinesTest, AreHarmless) {
    const Case cases[] = {
        {" start game ", "start game"},
        {"  ", ""},
        {"", ""},
        {"a\tb\r\nc\x1b[2J\x7f", "a b  c [2J"},
        {"\xc2\x9b"
         "2J\xc2\xbe",
         "2J\xc2\xbe"},
        {"Caf\xc3\xa9 \xf0\x9f\x8d\x95", "Caf\xc3\xa9 \xf0\x9f\x8d\x95"},
        {"\xc3(\xff\xed\xa0\x80\xe0\x80\x80\xf4\x90\x80\x80x\xe2\x82", "(x"},
    };
    for (const Case& c : cases) EXPECT_EQ(PrintableLine(c.bytes), c.turns) << c.bytes;
}

TEST(PrintedLinesTest, BreakAtWords) {
    using Rows = std::vector<std::string_view>;
    const struct {
        std::string_view line;
        std::size_t columns;
        Rows rows;
    } cases[] = {
        {"any length at all", 0, {"any length at all"}},
        {"ten cells.", 10, {"ten cells."}},
        {"ten cells and more", 10, {"ten cells", "and more"}},
        {"ten  cells,  and  more", 10, {"ten", "cells,", "and  more"}},
        {"a [tram, left to right]", 10, {"a [tram,", "left to", "right]"}},
        {"unbreakable word", 5, {"unbre", "akabl", "e", "word"}},
        {"\u00E9\u00E9\u00E9 \u00E9\u00E9\u00E9", 4, {"\u00E9\u00E9\u00E9", "\u00E9\u00E9\u00E9"}},
        {"", 10, {""}},
    };
    for (const auto& c : cases) EXPECT_EQ(BrokenAtWords(c.line, c.columns), c.rows) << c.line;
}

}  // namespace
}  // namespace tamlo
