#include "reading/pages.h"

#include <gtest/gtest.h>

namespace tamlo {
namespace {

/// Gives the print back, so that cells can be counted.
class Unchanged : public BrailleTranslator {
  public:
    std::string Translate(std::string_view print) override { return std::string(print); }
};

std::vector<std::string> LinesOf(const BraillePages& pages) {
    std::vector<std::string> lines;
    std::string line;
    for (const char c : pages.File()) {
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        } else if (c != '\r') {
            line += c;
        }
    }
    return lines;
}

std::vector<std::string> First(std::size_t count, const BraillePages& pages) {
    auto lines = LinesOf(pages);
    lines.resize(count);
    return lines;
}

TEST(BraillePages, ParagraphsAndItemsBreakAtBlanks) {
    Unchanged same;
    const std::string forty(40, 'A');
    const struct {
        const char* what;
        std::string print;
        std::vector<std::string> paragraph;
    } cases[] = {
        {"a word", "AB", {"  AB", ""}},
        {"a full first line",
         std::string(35, 'A') + " BB",
         {"  " + std::string(35, 'A') + " BB", ""}},
        {"one cell too many", std::string(36, 'A') + " BB", {"  " + std::string(36, 'A'), "BB"}},
        {"a word as long as a line", "B " + forty + " C", {"  B", forty, "C"}},
        {"a word longer than a line", forty + forty, {"  " + std::string(38, 'A'), forty, "AA"}},
        {"nothing but blanks", "   ", {"", ""}},
        {"several blanks", "A  B", {"  A B", ""}},
    };
    for (const auto& c : cases) {
        BraillePages pages(same);
        pages.Paragraph("X");
        pages.Paragraph(c.print);
        auto expected = c.paragraph;
        expected.insert(expected.begin(), "  X");
        EXPECT_EQ(First(expected.size(), pages), expected) << c.what;
    }
    BraillePages pages(same);
    pages.Item(std::string(39, 'A') + " BB");
    EXPECT_EQ(First(2, pages), (std::vector<std::string>{std::string(39, 'A'), "  BB"}));
}

TEST(BraillePages, EveryPageHas25LinesAndItsNumber) {
    Unchanged same;
    BraillePages pages(same);
    for (int i = 0; i < 24 * 11 + 1; ++i) pages.Item("A");
    const auto lines = LinesOf(pages);
    ASSERT_EQ(lines.size(), 12u * 25u);
    EXPECT_EQ(lines[24], std::string(38, ' ') + "#A");
    EXPECT_EQ(lines[25], "\fA");
    EXPECT_EQ(lines[249], std::string(37, ' ') + "#AJ");
    EXPECT_EQ(lines[299], std::string(37, ' ') + "#AB");
    EXPECT_EQ(BraillePages(same).File(), "");
}

TEST(BraillePages, AHeadingStaysWithItsText) {
    Unchanged same;
    for (const int before : {20, 21, 22, 24}) {
        BraillePages pages(same);
        for (int i = 0; i < before; ++i) pages.Item("A");
        pages.Heading("HEAD", 2);
        pages.Item("B");
        const auto lines = LinesOf(pages);
        const bool same_page = before == 20;
        EXPECT_EQ(lines.size(), same_page ? 25u : 50u) << before;
        EXPECT_EQ(lines[same_page ? 21 : 25], same_page ? "    HEAD" : "\f    HEAD") << before;
    }
    BraillePages pages(same);
    pages.Heading("TITLE", 1);
    EXPECT_EQ(First(2, pages), (std::vector<std::string>{std::string(17, ' ') + "TITLE", ""}));
}

TEST(BrailleTranslator, TakesAnyBytes) {
    const auto translator = MakeTranslator(Grade::uncontracted);
    if (!translator) GTEST_SKIP() << "no liblouis";
    const struct {
        std::string print, braille;
    } cases[] = {{"", ""},
                 {"oak 12", "OAK #AB"},
                 {"Oak", ",OAK"},
                 {"a\nb", "A B"},
                 {"\xC3\xBC", "^3U"},
                 {"a\xFF"
                  "b\xC3",
                  "A B"}};
    for (const auto& c : cases) {
        std::string braille = translator->Translate(c.print);
        braille.erase(braille.find_last_not_of(' ') + 1);
        EXPECT_EQ(braille, c.braille) << c.print;
    }
    EXPECT_EQ(translator->Translate(std::string(5000, 'a')).size(), 5000u);
}

}  // namespace
}  // namespace tamlo
