#include "text/printable.h"

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
