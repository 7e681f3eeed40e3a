// Pages of braille as a BRF file has them: 25 lines of 40 cells, the last one with the number of
// the page, form feeds between pages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reading/translator.h"

namespace tamlo {

class BraillePages {
  public:
    static constexpr std::size_t cells = 40;
    static constexpr std::size_t lines = 25;

    /// The translator must outlive the pages.
    explicit BraillePages(BrailleTranslator& translator) : translator_(translator) {}

    /// A heading of level 1 (centred), or of another (from the fifth cell). It keeps to the page
    /// of the lines behind it.
    void Heading(std::string_view print, int level);
    void Paragraph(std::string_view print);
    void Item(std::string_view print);
    /// Cells as they are, in lines of 40 at most.
    void Cells(std::string_view braille);
    void BlankLine();
    /// What follows begins a page.
    void NewPage();

    /// The whole file. Lines end with carriage return and line feed.
    std::string File() const;

  private:
    using Page = std::vector<std::string>;

    void Add(const std::string& braille, std::size_t first_indent, std::size_t indent);
    void AddLine(const std::string& line);
    std::size_t Room() const;

    BrailleTranslator& translator_;
    std::vector<Page> pages_ = {Page{}};
};

}  // namespace tamlo
