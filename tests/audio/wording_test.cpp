// Money and clock times in words, everything else left alone, and what may reach the engine.
#include "audio/voice/wording.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tamlo {
namespace {

struct Wording {
    const char* text;
    const char* words;
};

TEST(Wording, AmountsOfMoney) {
    constexpr Wording cases[] = {
        {" $17.45", " 17 dollars and 45 cents"},
        {" $.50", " 50 cents"},
        {" $.05", " 5 cents"},
        {" $.01", " 1 cent"},
        {" $20.", " 20 dollars"},
        {" $1.", " 1 dollar"},
        {" $1.01", " 1 dollar and 1 cent"},
        {" $.", " 0 dollars"},
        {" $1,234.50", " 1234 dollars and 50 cents"},
        {" $12,345,678.", " 12345678 dollars"},
        {" $-3.20", " minus 3 dollars and 20 cents"},
        {"$5", "5 dollars"},
        {"$7.00", "7 dollars"},
        {"$3.5 an hour", "3 dollars and 50 cents an hour"},
        // The point of a whole amount is not the one that ends the sentence.
        {"  cost $20.. They", "  cost 20 dollars. They"},
        {"That will be $20. please.", "That will be 20 dollars please."},
        {"You have $20. You may go.", "You have 20 dollars. You may go."},
        {" You are paid,  $9.42", " You are paid,  9 dollars and 42 cents"},
        {"($1.) and \"$.25\"", "(1 dollar) and \"25 cents\""},
        {"$1,23 or $1,2345", "1 dollar,23 or 1 dollar,2345"},
    };
    for (const auto& [text, words] : cases) EXPECT_EQ(WithSpokenAmounts(text), words) << text;
}

TEST(Wording, ClockTimes) {
    constexpr Wording cases[] = {
        {" The time is 3:00", " The time is 3 o'clock"},
        {" The time is 3:05", " The time is 3 oh 5"},
        {" The time is 10:02", " The time is 10 oh 2"},
        {" The time is 12:30", " The time is 12 30"},
        {" The time is 25:59", " The time is 25 59"},
        {" The time is 100:00", " The time is 100 o'clock"},
        // The real time has no zero before a single minute.
        {" The real time is 0:7", " The real time is 0 oh 7"},
        {" The real time is 2:5", " The real time is 2 oh 5"},
        {" The real time is 1:0", " The real time is 1 o'clock"},
        {"(3:00), 4:15. 5:45?", "(3 o'clock), 4 15. 5 45?"},
        {"3:05", "3 oh 5"},
        {"at \"9:30.\" sharp", "at \"9 30.\" sharp"},
    };
    for (const auto& [text, words] : cases) EXPECT_EQ(WithSpokenAmounts(text), words) << text;
}

TEST(Wording, LeavesEverythingElse) {
    constexpr const char* cases[] = {
        "",
        " ",
        "$",
        "$$",
        "$ 5",
        "$-",
        "US$5",
        "A$AP Street",
        "$5bill",
        "$1.234",
        "$.5x",
        "$\xC3\xA9",
        "3/5/2015",
        "12:34:56",
        "3:60",
        "3:5a",
        "a3:05",
        "1-3:05",
        "3:005",
        ":30",
        "3:",
        "3 :05",
        "ratio:5",
        "3:05.wav",
        "C:/games/9:30/log",
        "version 3.0:5",
        "5th Ave. and Route 66",
        "1,234 tamlos in 2.5 hours",
    };
    for (const char* text : cases) EXPECT_EQ(WithSpokenAmounts(text), text);
}

TEST(Wording, HostileTextTakesLinearTime) {
    constexpr const char* pieces[] = {"$",     "1",    ":",   "$1",    "$1,111", "1:1", "$.",
                                      "9:59.", "$1. ", "$1,", "1:11:", " ",      "$-",  "\"'"};
    const auto start = std::chrono::steady_clock::now();
    for (const char* piece : pieces) {
        std::string text;
        while (text.size() < 300'000) text += piece;
        EXPECT_LT(WithSpokenAmounts(text).size(), 20 * text.size()) << piece;
    }
    // Some tens of milliseconds; square time would be minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(Wording, CleansTextForTheEngine) {
    struct Case {
        std::string text;
        std::string cleaned;
    };
    const Case cases[] = {
        {"plain \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8D\x95",
         "plain \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8D\x95"},
        {"two\r\nlines\tand", "two \nlines and"},
        {std::string("a\0b\x01"
                     "5S\x7F",
                     7),
         "a b 5S "},
        {"\xC2\x85", " "},
        {"a\xFF"
         "b\xC3",
         "ab"},
        {"\xC0\xAF\xE0\x80\xAF\xED\xA0\x80\xF4\x90\x80\x80x", "x"},
        {"\xE2\x82", ""},
        {"\xEF\xBB\xBF"
         "bom",
         "bom"},
        {"\xEE\x80\x80\xEF\xA3\xBF\xEF\xBF\xBF\xF3\xB0\x80\x80", ""},
        {"<b>[[h@l]]</b> & {x}", "<b>[[h@l]]</b> & {x}"},
    };
    for (const auto& [text, cleaned] : cases) EXPECT_EQ(CleanedForSpeech(text), cleaned) << text;
}

TEST(Wording, KnowsASingleCharacter) {
    EXPECT_EQ(SingleCharacter("a"), U'a');
    EXPECT_EQ(SingleCharacter("\xC2\xBE"), U'\u00BE');
    EXPECT_EQ(SingleCharacter(""), 0u);
    EXPECT_EQ(SingleCharacter("ab"), 0u);
    EXPECT_EQ(SingleCharacter("\xC2\xBE\xC2\xBE"), 0u);
}

}  // namespace
}  // namespace tamlo
