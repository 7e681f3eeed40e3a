#include "text/text_encoding.h"

#include <array>
#include <cstdint>

#include "text/utf8.h"

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

}  // namespace

std::string FromWindows1252(int code) {
    if (code < 0 || code > 255) return "";
    if (code >= 128 && code < 160)
        return EncodeCharacter(high_controls[static_cast<std::size_t>(code - 128)]);
    return EncodeCharacter(static_cast<char32_t>(code));
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
