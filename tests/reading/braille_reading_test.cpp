// A braille display of few cells: long lines in pieces, and the way back to what was before.
#include <gtest/gtest.h>

#include "reading/braille_reading.h"

namespace tamlo {
namespace {

TEST(BrailleReadingTest, RowsBreakBetweenWords) {
    using Rows = std::vector<std::string_view>;
    const struct {
        std::string_view text;
        Rows rows;
    } cases[] = {
        {"", {""}},
        {"ten cells!", {"ten cells!"}},
        {"ten cells! more", {"ten cells!", "more"}},
        {"two  blanks  between them", {"two ", "blanks ", "between", "them"}},
        {"a word-longer-than-ten", {"a", "word-longe", "r-than-ten"}},
        {"Caf\xc3\xa9 Caf\xc3\xa9 Caf\xc3\xa9", {"Caf\xc3\xa9 Caf\xc3\xa9", "Caf\xc3\xa9"}},
    };
    for (const auto& c : cases) EXPECT_EQ(BrokenIntoRows(c.text, 10), c.rows) << c.text;
}

TEST(BrailleReadingTest, PanningGoesThroughPiecesAndLines) {
    BrailleReading reading;
    reading.SetSize(6, 1);
    EXPECT_EQ(reading.Page(), "      ");
    reading.Back();
    reading.Forward();
    reading.Add("one two three");
    reading.Add("four");
    EXPECT_EQ(reading.Page(), "four  ");
    for (const char* page : {"three ", "two   ", "one   ", "one   "}) {
        reading.Back();
        EXPECT_EQ(reading.Page(), page);
    }
    for (const char* page : {"two   ", "three ", "four  ", "four  "}) {
        reading.Forward();
        EXPECT_EQ(reading.Page(), page);
    }
    reading.Back();
    reading.SetSize(13, 2);  // another display: the place is kept as far as it can be
    EXPECT_EQ(reading.Page(), "one two three             ");
    reading.Add("five");
    EXPECT_EQ(reading.Page().substr(0, 4), "five") << "what is new is shown at once";
    for (int line = 0; line < 200; ++line) reading.Add("more");
    for (int line = 0; line < 200; ++line) reading.Back();
    EXPECT_EQ(reading.Page().substr(0, 4), "more") << "the oldest are forgotten";
}

}  // namespace
}  // namespace tamlo
