// Counting text fields: every kind of delimiter, quote and ending, each with its count.
#include "sound/text_fields.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace tamlo {
namespace {

struct Case {
    std::string bytes;
    std::size_t count;
    std::size_t last_length;
};

TEST(TextFields, AreCountedByDelimiterQuoteAndEnd) {
    const Case cases[] = {
        {"", 1, 0},
        {"a,b", 2, 1},
        {"a,b,", 2, 1},
        {"a\r\nb", 2, 1},
        {"a\r\rb", 3, 1},
        {"a\n\rb", 3, 1},
        {"a\nb", 2, 1},
        {"a,,b", 3, 1},
        {",", 1, 0},
        // Blanks are skipped in front of a field and kept inside and behind it; no other
        // character is a blank.
        {"  a", 1, 1},
        {"a , b  ", 2, 3},
        {"a,  ", 2, 0},
        {"a\tb", 1, 3},
        {"\0\0a"s, 1, 3},
        // Quotes count only where a field begins.
        {"\"a,b\",c", 2, 1},
        {"\"a,b\"", 1, 3},
        {"\"a\" ,bc", 2, 2},
        {"\"a\"bc,d", 3, 1},
        {"\"abc", 1, 3},
        {"\"", 1, 0},
        {"\"\"", 1, 0},
        {"a\"b,c", 2, 1},
        // The end mark ends the text wherever it stands.
        {"ab\x1a"
         "cd",
         1, 2},
        {"a,\x1a", 1, 1},
        {"\x1a", 1, 0},
        {"\"a\x1a"
         "b\",c",
         1, 1},
        {"a,bcd\x1a,e,f", 2, 3},
    };
    for (const Case& c : cases) {
        const TextFields fields = CountTextFields(c.bytes);
        EXPECT_EQ(fields.count, c.count) << c.bytes;
        EXPECT_EQ(fields.last_length, c.last_length) << c.bytes;
    }
}

TEST(TextFields, TakeTimeInProportionToTheBytes) {
    // A reader that goes back over what it has read would take hours over these.
    constexpr std::size_t bytes = 8'000'000;
    EXPECT_EQ(CountTextFields(std::string(bytes, ',')).count, bytes);
    EXPECT_EQ(CountTextFields(std::string(bytes, '"')).count, bytes / 2);
    EXPECT_EQ(CountTextFields(std::string(bytes, 'x')).last_length, bytes);
}

}  // namespace
}  // namespace tamlo
