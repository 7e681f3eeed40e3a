// What a braille display shows of the lines written so far.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

/// Keeps the last lines and the reader's place in them. A new line is shown at once, from its
/// beginning, wherever the reader was; panning back leads through the lines before.
class BrailleReading {
  public:
    static constexpr std::size_t lines_kept = 100;

    /// Cells in a row and rows of the display, at least 1 each.
    void SetSize(std::size_t columns, std::size_t rows);

    /// A line of well-formed UTF-8.
    void Add(std::string line);
    /// The next page of the line; behind its last one, the next line.
    void Forward();
    /// The page before; ahead of a line's first one, the last page of the line before.
    void Back();
    /// To the beginning of the newest line.
    void ToNewest();

    bool Empty() const { return lines_.empty(); }
    /// A character for each cell, row by row. Rows are broken between words where they can be.
    std::string Page() const;

  private:
    std::size_t PagesOf(std::size_t line) const;

    std::deque<std::string> lines_;
    std::size_t columns_ = 40;
    std::size_t rows_ = 1;
    std::size_t line_ = 0;
    std::size_t page_ = 0;
};

/// The text in rows of at most so many characters, broken at blanks, or inside a word that is
/// longer than a row. At least one row.
std::vector<std::string_view> BrokenIntoRows(std::string_view text, std::size_t columns);

}  // namespace tamlo
