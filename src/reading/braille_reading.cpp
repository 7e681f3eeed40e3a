// Breaking lines into pages, and the way through them.
#include "reading/braille_reading.h"

#include <algorithm>
#include <utility>

#include "text/utf8.h"

namespace tamlo {

std::vector<std::string_view> BrokenIntoRows(std::string_view text, std::size_t columns) {
    std::vector<std::string_view> rows;
    while (CountCharacters(text) > columns) {
        // A blank just behind the row ends it as well as one inside.
        const std::size_t blank = FirstCharacters(text, columns + 1).rfind(' ');
        const bool between_words = blank != std::string_view::npos && blank > 0;
        const std::size_t end = between_words ? blank : FirstCharacters(text, columns).size();
        rows.push_back(text.substr(0, end));
        text.remove_prefix(end);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    }
    if (!text.empty() || rows.empty()) rows.push_back(text);
    return rows;
}

void BrailleReading::SetSize(std::size_t columns, std::size_t rows) {
    columns_ = std::max<std::size_t>(columns, 1);
    rows_ = std::max<std::size_t>(rows, 1);
    if (!Empty()) page_ = std::min(page_, PagesOf(line_) - 1);
}

void BrailleReading::Add(std::string line) {
    lines_.push_back(std::move(line));
    if (lines_.size() > lines_kept) lines_.pop_front();
    ToNewest();
}

void BrailleReading::ToNewest() {
    line_ = Empty() ? 0 : lines_.size() - 1;
    page_ = 0;
}

void BrailleReading::Forward() {
    if (Empty()) return;
    if (page_ + 1 < PagesOf(line_)) {
        ++page_;
    } else if (line_ + 1 < lines_.size()) {
        ++line_;
        page_ = 0;
    }
}

void BrailleReading::Back() {
    if (page_ > 0) {
        --page_;
    } else if (line_ > 0) {
        --line_;
        page_ = PagesOf(line_) - 1;
    }
}

std::size_t BrailleReading::PagesOf(std::size_t line) const {
    return (BrokenIntoRows(lines_[line], columns_).size() + rows_ - 1) / rows_;
}

std::string BrailleReading::Page() const {
    std::vector<std::string_view> rows;
    if (!Empty()) rows = BrokenIntoRows(lines_[line_], columns_);
    std::string page;
    for (std::size_t row = page_ * rows_; row < (page_ + 1) * rows_; ++row) {
        const std::string_view text = row < rows.size() ? rows[row] : std::string_view();
        page += text;
        page.append(columns_ - CountCharacters(text), ' ');
    }
    return page;
}

}  // namespace tamlo
