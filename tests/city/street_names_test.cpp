#include "city/street_names.h"

#include <gtest/gtest.h>

#include "city/streets_file.h"
#include "text/utf8.h"

namespace tamlo {
namespace {

using namespace std::string_literals;
using Names = std::vector<std::string>;

TEST(StreetNames, MeetInTheMiddleOfTheCity) {
    const struct {
        int street;
        const char* name;
    } cases[] = {
        {1, "Fifty First Street"},   {2, "Fiftieth Street"},     {31, "Twenty First Street"},
        {32, "Twentieth Street"},    {42, "Tenth Street"},       {51, "First Street"},
        {52, "First Avenue"},        {64, "Thirteenth Avenue"},  {91, "Fortieth Avenue"},
        {100, "Forty Ninth Avenue"}, {102, "Fifty First Avenue"}};
    for (const auto& c : cases) EXPECT_EQ(DefaultStreet(c.street), c.name);
    EXPECT_EQ(default_roads[22], "Center");
    EXPECT_EQ(default_roads[21], "Apple");
    EXPECT_EQ(default_roads[23], "Buick");
}

TEST(StreetsFile, FieldsAreReadAsPlayersWriteThem) {
    const struct {
        std::string text;
        Names names;
    } cases[] = {
        {"Oak\r\nElm\r\n", {"Oak", "Elm"}},
        {"Oak\nElm\rAsh", {"Oak", "Elm", "Ash"}},
        {"Oak, Elm\r\n", {"Oak", "Elm"}},
        {"\"Oak, old\"\r\nElm", {"Oak, old", "Elm"}},
        {"\"Oak\" Lane\r\nElm", {"Oak Lane", "Elm"}},
        {"  Oak \r\n\r\nElm", {"Oak ", "", "Elm"}},
        {"\"Oak\r\nElm", {"Oak\r\nElm"}},
        {"Oak\x1A"
         "Elm",
         {"Oak"}},
        {"Z\xFC"
         "rich",
         {"Z\u00FCrich"}},
        {"\xEF\xBB\xBFOak", {"Oak"}},
        {"", {}},
        {"\r\n", {""}},
        {"Oak\r", {"Oak"}},
        {"Oak\n  ", {"Oak", ""}},
        {"\"\"\r\n", {""}},
    };
    for (const auto& c : cases) EXPECT_EQ(ReadStreetNames(c.text), c.names) << c.text;
}

TEST(StreetsFile, OnlyTheFirst147NamesAreKeptAndNoneIsEndless) {
    std::string many;
    for (int i = 0; i < 200; ++i) many += "Name " + std::to_string(i) + "\r\n";
    EXPECT_EQ(ReadStreetNames(many).size(), 147u);
    EXPECT_EQ(ReadStreetNames(many).back(), "Name 146");
    std::string endless;
    for (int i = 0; i < 5000; ++i) endless += "\u00E9";
    const Names names = ReadStreetNames(endless);
    ASSERT_EQ(names.size(), 1u);
    EXPECT_EQ(CountCharacters(names[0]), 200u);
    EXPECT_TRUE(IsUtf8(names[0]));
}

TEST(StreetsFile, NamesOfCitiesThatCanNameAFile) {
    EXPECT_EQ(StreetsFileName("original"), "tamlostreets.txt");
    EXPECT_EQ(StreetsFileName("New York"), "tamlostreetsNew York.txt");
    for (const std::string& name :
         {"Paris"s, "New York"s, "Z\u00FCrich"s, "a"s, "st.john"s, "\u00BE"s, "a\xC2"s, " a"s,
          "a "s, ".a"s, "a."s, " "s, "..."s, std::string(239, 'x')}) {
        EXPECT_EQ(WhyNotCityName(name), "") << name;
    }
    const std::pair<std::string_view, std::vector<std::string>> refused[] = {
        {"A city needs a name. ", {""}},
        {"It is too long. ", {std::string(240, 'x')}},
        {"It may have no slash, ", {"a/b", "a\\b", "a:b", "a*", "?", "\"a\"", "<a", "a>", "a|b"}},
        {"One of its keys is not ", {"a\tb", "\x7F", "a\u0081", "a\0b"s}},
    };
    for (const auto& [why, names] : refused) {
        for (const std::string& name : names) {
            EXPECT_TRUE(WhyNotCityName(name).starts_with(why)) << name;
        }
    }
}

}  // namespace
}  // namespace tamlo
