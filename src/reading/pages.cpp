#include "reading/pages.h"

namespace tamlo {
namespace {

constexpr std::size_t text_lines = BraillePages::lines - 1;
constexpr std::size_t lines_with_a_heading = 4;  // a blank one, the heading, and two of the text

/// The text in lines: words stay whole unless they are longer than a line.
std::vector<std::string> Lines(std::string_view text, std::size_t first_indent,
                               std::size_t indent) {
    std::vector<std::string> lines;
    std::string line(first_indent, ' ');
    bool empty = true;
    while (!text.empty()) {
        const std::size_t blank = std::min(text.find(' '), text.size());
        std::string_view word = text.substr(0, blank);
        text.remove_prefix(std::min(blank + 1, text.size()));
        while (!word.empty()) {
            const std::size_t room = BraillePages::cells - line.size() - (empty ? 0 : 1);
            const bool hopeless = empty && word.size() > room;
            if (!hopeless &&
                (line.size() + (empty ? 0 : 1) >= BraillePages::cells || word.size() > room)) {
                lines.push_back(line);
                line.assign(indent, ' ');
                empty = true;
                continue;
            }
            const std::string_view piece = word.substr(0, room);
            if (!empty) line += ' ';
            line += piece;
            word.remove_prefix(piece.size());
            empty = false;
        }
    }
    if (!empty) lines.push_back(line);
    return lines;
}

/// A page's number in braille: the number sign, and the letters that stand for digits.
std::string PageNumber(std::size_t number) {
    std::string cells;
    for (; number > 0; number /= 10) cells.insert(cells.begin(), "JABCDEFGHI"[number % 10]);
    return "#" + cells;
}

}  // namespace

std::size_t BraillePages::Room() const {
    return text_lines - pages_.back().size();
}

void BraillePages::AddLine(const std::string& line) {
    if (Room() == 0) pages_.emplace_back();
    // A page does not begin with a gap.
    if (!line.empty() || !pages_.back().empty()) pages_.back().push_back(line);
}

void BraillePages::Add(const std::string& braille, std::size_t first_indent, std::size_t indent) {
    for (const std::string& line : Lines(braille, first_indent, indent)) AddLine(line);
}

void BraillePages::Heading(std::string_view print, int level) {
    if (Room() < lines_with_a_heading) NewPage();
    BlankLine();
    const std::string braille = translator_.Translate(print);
    const bool centred = level == 1 && braille.size() < cells;
    const std::size_t indent = centred ? (cells - braille.size()) / 2 : level == 1 ? 0 : 4;
    Add(braille, indent, indent);
    if (level == 1) BlankLine();
}

void BraillePages::Paragraph(std::string_view print) {
    Add(translator_.Translate(print), 2, 0);
}

void BraillePages::Item(std::string_view print) {
    Add(translator_.Translate(print), 0, 2);
}

void BraillePages::Cells(std::string_view braille) {
    for (; braille.size() > cells; braille.remove_prefix(cells)) {
        AddLine(std::string(braille.substr(0, cells)));
    }
    AddLine(std::string(braille));
}

void BraillePages::BlankLine() {
    AddLine("");
}

void BraillePages::NewPage() {
    if (!pages_.back().empty()) pages_.emplace_back();
}

std::string BraillePages::File() const {
    std::string file;
    std::size_t number = 0;
    for (const Page& page : pages_) {
        if (page.empty()) continue;
        if (number > 0) file += '\f';
        for (std::size_t i = 0; i < text_lines; ++i) {
            if (i < page.size()) file += page[i];
            file += "\r\n";
        }
        const std::string shown = PageNumber(++number);
        file += std::string(cells - shown.size(), ' ') + shown + "\r\n";
    }
    return file;
}

}  // namespace tamlo
