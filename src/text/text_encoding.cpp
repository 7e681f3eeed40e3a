#include "text/text_encoding.h"

#include <array>
#include <cstdint>

namespace tamlo {
namespace {

// Codes 128 to 159, the only ones where Windows-1252 is not Latin-1.
constexpr std::array<std::uint16_t, 32> high_controls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct CasePair {
    int capital;
    int small;
};
constexpr std::array<CasePair, 4> odd_pairs = {{{138, 154}, {140, 156}, {142, 158}, {159, 255}}};

bool IsCapital(int code) {
    return (code >= 'A' && code <= 'Z') || (code >= 192 && code <= 222 && code != 215);
}

std::string Encode(unsigned code_point) {
    std::string utf8;
    if (code_point < 0x80) {
        utf8 += static_cast<char>(code_point);
    } else if (code_point < 0x800) {
        utf8 += static_cast<char>(0xC0 | (code_point >> 6));
        utf8 += static_cast<char>(0x80 | (code_point & 0x3F));
    } else {
        utf8 += static_cast<char>(0xE0 | (code_point >> 12));
        utf8 += static_cast<char>(0x80 | ((code_point >> 6) & 0x3F));
        utf8 += static_cast<char>(0x80 | (code_point & 0x3F));
    }
    return utf8;
}

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Length of the well-formed UTF-8 character at the front, 0 if there is none.
std::size_t WellFormed(std::string_view text) {
    if (text.empty()) return 0;
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(text[i])) return 0;
    }
    const auto second = static_cast<unsigned char>(text[1]);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool no_character = (lead == 0xED && second > 0x9F) || (lead == 0xF4 && second > 0x8F);
    return overlong || no_character ? 0 : length;
}

}  // namespace

std::string FromWindows1252(int code) {
    if (code < 0 || code > 255) return "";
    if (code >= 128 && code < 160)
        return Encode(high_controls[static_cast<std::size_t>(code - 128)]);
    return Encode(static_cast<unsigned>(code));
}

std::optional<int> ToWindows1252(std::string_view utf8) {
    const std::string_view character = utf8.substr(0, FirstCharacter(utf8));
    for (int code = 0; code < 256; ++code) {
        if (FromWindows1252(code) == character) return code;
    }
    return std::nullopt;
}

int LowerCase1252(int code) {
    for (const CasePair& pair : odd_pairs) {
        if (code == pair.capital) return pair.small;
    }
    return IsCapital(code) ? code + 32 : code;
}

int UpperCase1252(int code) {
    for (const CasePair& pair : odd_pairs) {
        if (code == pair.small) return pair.capital;
    }
    return IsCapital(code - 32) ? code - 32 : code;
}

std::size_t FirstCharacter(std::string_view text) {
    const std::size_t length = WellFormed(text);
    return length == 0 && !text.empty() ? 1 : length;
}

std::size_t LastCharacter(std::string_view text) {
    for (std::size_t length = 1; length <= 4 && length <= text.size(); ++length) {
        if (WellFormed(text.substr(text.size() - length)) == length) return length;
    }
    return text.empty() ? 0 : 1;
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) text.remove_prefix(FirstCharacter(text));
    return count;
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = WellFormed(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string DecodeText(std::string_view bytes) {
    if (IsUtf8(bytes)) {
        constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
        if (bytes.starts_with(byte_order_mark)) bytes.remove_prefix(byte_order_mark.size());
        return std::string(bytes);
    }
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text += FromWindows1252(static_cast<unsigned char>(byte));
    return text;
}

}  // namespace tamlo
