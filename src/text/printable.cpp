// Taking UTF-8 apart into characters.
#include "text/printable.h"

#include <algorithm>

namespace tamlo {
namespace {

/// Length of the well-formed UTF-8 character at the start of `text`; 0 if there is none.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0U) != 0x80) return 0;
    }
    const unsigned second = byte(1);
    const bool overlong = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
    const bool no_character = (first == 0xed && second > 0x9f) || (first == 0xf4 && second > 0x8f);
    return overlong || no_character ? 0 : length;
}

/// Whether a terminal could take the character for a command: C0, DEL and C1.
bool IsControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) return first < 0x20 || first == 0x7f;
    return first == 0xc2 && static_cast<unsigned char>(character[1]) < 0xa0;
}

}  // namespace

std::string PrintableLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const std::string_view character = text.substr(0, length);
        if (length != 0) line += IsControl(character) ? std::string_view(" ") : character;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

std::size_t CharacterCount(std::string_view text) {
    const auto begins = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80;
    };
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) {
        end += std::max<std::size_t>(CharacterLength(text.substr(end)), 1);
    }
    return text.substr(0, end);
}

}  // namespace tamlo
