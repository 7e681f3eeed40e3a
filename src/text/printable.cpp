#include "text/printable.h"

#include <algorithm>

#include "text/utf8.h"

namespace tamlo {
namespace {

/// Whether a terminal could take the character for a command: C0, DEL and C1.
bool IsControl(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

}  // namespace

std::string PrintableLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const Utf8Character character = DecodeCharacter(text);
        if (character.length != 0) {
            line += IsControl(character.code) ? " " : text.substr(0, character.length);
        }
        text.remove_prefix(FirstCharacter(text));
    }
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> BrokenAtWords(std::string_view line, std::size_t columns) {
    std::vector<std::string_view> rows;
    while (true) {
        std::string_view row = columns == 0 ? line : FirstCharacters(line, columns);
        if (row.size() < line.size() && line[row.size()] != ' ') {
            const std::size_t blank = row.rfind(' ');
            if (blank != row.npos) row = row.substr(0, blank);
        }
        line.remove_prefix(row.size());
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        while (row.ends_with(' ')) row.remove_suffix(1);
        rows.push_back(row);
        if (line.empty()) return rows;
    }
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        switch (c) {
            case '"': quoted += "\\\""; break;
            case '\\': quoted += "\\\\"; break;
            case '\r': quoted += "\\r"; break;
            case '\n': quoted += "\\n"; break;
            default: quoted += c;
        }
    }
    return quoted + '"';
}

}  // namespace tamlo
