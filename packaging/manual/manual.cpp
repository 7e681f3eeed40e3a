// Makes the manual for a browser, for a text editor and in braille, from one source.
//
//     manual html|text|uncontracted|contracted MANUAL.md
//
// prints the result. The source holds headings (#), items (-) and paragraphs; nothing else, since
// it is written to be heard.
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "reading/pages.h"

namespace tamlo {
namespace {

constexpr std::size_t text_width = 72;
constexpr int wrong_use = 2;

struct Block {
    enum class Kind { heading, paragraph, item };
    Kind kind = Kind::paragraph;
    int level = 0;  // of a heading
    std::string text;
};

std::vector<Block> ReadBlocks(std::istream& source) {
    std::vector<Block> blocks;
    bool goes_on = false;
    for (std::string line; std::getline(source, line);) {
        const std::size_t hashes = line.find_first_not_of('#');
        if (line.empty()) {
            goes_on = false;
        } else if (hashes != 0 && hashes != line.npos) {
            blocks.push_back(
                {Block::Kind::heading, static_cast<int>(hashes), line.substr(hashes + 1)});
            goes_on = false;
        } else if (line.starts_with("- ")) {
            blocks.push_back({Block::Kind::item, 0, line.substr(2)});
            goes_on = true;
        } else if (goes_on) {
            blocks.back().text +=
                " " + line.substr(std::min(line.find_first_not_of(' '), line.size()));
        } else {
            blocks.push_back({Block::Kind::paragraph, 0, line});
            goes_on = true;
        }
    }
    return blocks;
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&') {
            escaped += "&amp;";
        } else if (c == '<') {
            escaped += "&lt;";
        } else if (c == '>') {
            escaped += "&gt;";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string Html(const std::vector<Block>& blocks) {
    std::string html =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width\">\n<title>" +
        Escaped(blocks.front().text) + "</title>\n</head>\n<body>\n<main>\n";
    bool list = false;
    for (const Block& block : blocks) {
        const bool item = block.kind == Block::Kind::item;
        if (item != list) html += item ? "<ul>\n" : "</ul>\n";
        list = item;
        const std::string tag = item ? "li"
                                : block.kind == Block::Kind::heading
                                    ? "h" + std::to_string(block.level)
                                    : "p";
        html.append("<").append(tag).append(">").append(Escaped(block.text));
        html.append("</").append(tag).append(">\n");
    }
    return html + (list ? "</ul>\n" : "") + "</main>\n</body>\n</html>\n";
}

std::string Wrapped(const std::string& text, const std::string& lead, const std::string& indent) {
    std::string lines;
    std::string line = lead;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t blank = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, blank - at);
        at = blank + 1;
        if (line.size() + 1 + word.size() > text_width) {
            lines += line + "\n";
            line = indent;
        }
        line += (line.empty() || line.back() == ' ' ? "" : " ") + word;
    }
    return lines + line + "\n";
}

std::string Text(const std::vector<Block>& blocks) {
    std::string text;
    Block::Kind last = Block::Kind::heading;
    for (const Block& block : blocks) {
        const bool item = block.kind == Block::Kind::item;
        const bool close = item && last == Block::Kind::item;
        if (!text.empty() && !close) text += block.kind == Block::Kind::heading ? "\n\n" : "\n";
        text += item ? Wrapped(block.text, "- ", "  ") : Wrapped(block.text, "", "");
        last = block.kind;
    }
    return text;
}

std::string Braille(const std::vector<Block>& blocks, BrailleTranslator& translator) {
    BraillePages pages(translator);
    for (const Block& block : blocks) {
        switch (block.kind) {
            case Block::Kind::heading: pages.Heading(block.text, block.level); break;
            case Block::Kind::paragraph: pages.Paragraph(block.text); break;
            case Block::Kind::item: pages.Item(block.text); break;
        }
    }
    return pages.File();
}

int Make(const std::string& form, const std::string& source) {
    std::ifstream file(source, std::ios::binary);
    const std::vector<Block> blocks = ReadBlocks(file);
    if (blocks.empty()) {
        std::cerr << "manual: \"" << source << "\" can't be read, or is empty\n";
        return wrong_use;
    }
    if (form == "html") {
        std::cout << Html(blocks);
    } else if (form == "text") {
        std::cout << Text(blocks);
    } else {
        const auto translator =
            MakeTranslator(form == "contracted" ? Grade::contracted : Grade::uncontracted);
        if (!translator) {
            std::cerr << "manual: liblouis or its tables are missing\n";
            return 1;
        }
        std::cout << Braille(blocks, *translator);
    }
    return std::cout.flush() ? 0 : 1;
}

}  // namespace
}  // namespace tamlo

int main(int argc, char** argv) {
    const std::string form = argc == 3 ? argv[1] : "";
    if (form != "html" && form != "text" && form != "uncontracted" && form != "contracted") {
        std::cerr << "usage: manual html|text|uncontracted|contracted MANUAL.md\n";
        return tamlo::wrong_use;
    }
    return tamlo::Make(form, argv[2]);
}
