// Findings about streets files, and the map.
#include "city/city_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/voice/pronunciation.h"
#include "city/city_map.h"
#include "city/street_names.h"
#include "city/streets_file.h"
#include "driving/hazards.h"

namespace tamlo {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Names = std::vector<std::string>;

Names GoodCity() {
    Names names(default_roads.begin(), default_roads.end());
    for (int street = 1; street <= most_streets; ++street) names.push_back(DefaultStreet(street));
    return names;
}

std::string Lines(const Names& names) {
    std::string text;
    for (const std::string& name : names) text += name + "\n";
    return text;
}

/// The good city with one line of its file replaced.
std::string With(std::size_t line, const std::string& text) {
    Names names = GoodCity();
    names[line - 1] = text;
    return Lines(names);
}

Names Told(std::string_view bytes, const Pronounce& pronounce = {}) {
    Names told;
    for (const CityFinding& finding : CheckCity(bytes, pronounce)) {
        const bool error = finding.weight == CityFinding::Weight::error;
        told.push_back((error ? "E " : "H ") + finding.text);
    }
    return told;
}

TEST(CityCheck, TellsWhatIsWrongAndWhere) {
    const struct {
        std::string bytes;
        const char* told;
    } cases[] = {
        {With(5, ""), "E Line 5, road 5, has no name."},
        {With(46, "  "), "E Line 46, street 1, has no name."},
        {With(9, "redwood "), "E Line 9: road 9 has the name of road 5, \"redwood \"."},
        {With(3, "\"Sycamore"), "goes on over the end of its line"},
        {With(3, "\u041B\u0435\u043D\u0438\u043D\u0430"),
         "H Line 3, road 3, \"\u041B\u0435\u043D\u0438\u043D\u0430\", has letters that the voices"},
        {With(3, std::string(41, 'x')), "has 41 characters, and is heard"},
        {With(3, std::string(201, 'x')), "has 201 characters, of which 200 are spoken"},
        {With(9, "\" redwood \""), "E Line 9: road 9 has the name of road 5"},
        {With(9, "red  wood") + "last", "H Line 148, \"last\""},
        {With(3, "Beech\tHill"), "holds a control character"},
        {With(3, "Beech\x7FHill"), "\"Beech Hill\", holds a control character"},
        {With(3, "\"Beech\rHill\""), "goes on over the end of its line"},
        {With(3, "Rue Lib\xE9rale"), "H The text is not UTF-8"},
        {With(147, "Last\nMore"), "H Line 148, \"More\", and what follows stand after"},
        {With(4, "Spruce\x1A"), "E A byte 26 ends the file"},
        {With(4, "Spruce, old").erase(With(4, "Spruce, old").size() - 20),
         "H Line 4, road 5, \"old\", stands after a comma"},
    };
    for (const auto& c : cases) {
        EXPECT_THAT(Told(c.bytes), testing::Contains(HasSubstr(c.told))) << c.told;
    }
    EXPECT_THAT(Told(Lines(GoodCity())), IsEmpty());
    EXPECT_THAT(Told(Lines(GoodCity()) + "\n\n"), IsEmpty());
    EXPECT_THAT(Told(Lines(GoodCity()) + "\x1A"), IsEmpty());
    EXPECT_THAT(Told(With(3, "\"Sycamore, old\"")), IsEmpty());
    Names few = GoodCity();
    few.resize(140);
    EXPECT_THAT(Told(Lines(few)), ElementsAre("E The file has 140 names, and needs 147: 7 are "
                                              "missing."));
    EXPECT_THAT(Told(std::string("\xFF\xFEO\0a\0k\0", 8)), ElementsAre(HasSubstr("UTF-16")));
    EXPECT_THAT(Told(""), ElementsAre(HasSubstr("147 are missing")));
}

TEST(CityCheck, ErrorsComeFirst) {
    Names names = GoodCity();
    names[1] = std::string(41, 'x');
    names[2] = "";
    EXPECT_THAT(Told(Lines(names)), ElementsAre(HasSubstr("no name"), HasSubstr("41 characters")));
}

TEST(CityCheck, NamesThatSoundAlikeAreHints) {
    if (!CanPronounce()) GTEST_SKIP() << "no voice";
    EXPECT_THAT(Told(Lines(GoodCity()), Pronunciation), IsEmpty());
    Names names = GoodCity();
    names[0] = "Main";
    names[6] = "Mane";
    names[7] = ". -";
    names[8] = "MAIN";
    EXPECT_THAT(Told(Lines(names), Pronunciation),
                ElementsAre("E Line 8, road 8, \". -\", is silent.",
                            "E Line 9: road 9 has the name of road 1, \"MAIN\".",
                            "H Line 7: road 7, \"Mane\", sounds like road 1, \"Main\"."));
}

TEST(StreetsFile, WrittenNamesAreReadAgain) {
    Names names = GoodCity();
    names[0] = "Oak, old";
    names[1] = "";
    names[2] = "a \"b\" c";
    const auto text = WriteStreetNames(names);
    ASSERT_TRUE(text);
    EXPECT_EQ(ReadStreetNames(*text), names);
    for (const char* name : {" Oak", "\"Oak", "O\nak", "Oak\x1A", "a \"b\", c"}) {
        EXPECT_FALSE(WriteStreetNames({name})) << name;
    }
}

TEST(CityMap, EveryHazardLiesOnOneSheet) {
    std::string all;
    for (const MapSheet& sheet : map_sheets) {
        for (const std::string& row : Marks(sheet)) all += row;
    }
    ASSERT_EQ(all.size(), 400u);
    const auto count = [&](char mark) { return std::count(all.begin(), all.end(), mark); };
    EXPECT_EQ(count('='), 2);
    EXPECT_EQ(400 - count('-') - count('='), static_cast<long>(hazards.size()));
    EXPECT_EQ(Marks(map_sheets[2])[0], "---X-----=");  // Center, west of the restaurant
    EXPECT_EQ(Marks(map_sheets[3])[1], "--P-------");
    for (const MapMark& mark : map_marks) EXPECT_GT(count(mark.cell), 0) << mark.meaning;
}

}  // namespace
}  // namespace tamlo
