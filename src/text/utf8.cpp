#include "text/utf8.h"

#include <algorithm>

namespace tamlo {
namespace {

/// Bytes of the character that begins with this byte; 0 if none does.
std::size_t LengthFromFirstByte(unsigned first) {
    if (first < 0x80) return 1;
    if (first < 0xC2) return 0;
    if (first < 0xE0) return 2;
    if (first < 0xF0) return 3;
    return first < 0xF5 ? 4 : 0;
}

}  // namespace

Utf8Character DecodeCharacter(std::string_view text) {
    if (text.empty()) return {};
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    const std::size_t length = LengthFromFirstByte(first);
    if (length == 0 || length > text.size()) return {};
    char32_t code = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) return {};
        code = (code << 6) | (byte(i) & 0x3FU);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (overlong || surrogate || code > 0x10FFFF) return {};
    return {length, code};
}

std::string EncodeCharacter(char32_t code) {
    if (code < 0x80) return {static_cast<char>(code)};
    const std::size_t length = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    std::string utf8(length, '\0');
    for (std::size_t i = length - 1; i > 0; --i) {
        utf8[i] = static_cast<char>(0x80U | (code & 0x3FU));
        code >>= 6;
    }
    utf8[0] = static_cast<char>((0xF00U >> length) | code);
    return utf8;
}

std::size_t FirstCharacter(std::string_view text) {
    return text.empty() ? 0 : std::max<std::size_t>(DecodeCharacter(text).length, 1);
}

std::size_t LastCharacter(std::string_view text) {
    for (std::size_t length = 1; length <= 4 && length <= text.size(); ++length) {
        if (DecodeCharacter(text.substr(text.size() - length)).length == length) return length;
    }
    return text.empty() ? 0 : 1;
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) text.remove_prefix(FirstCharacter(text));
    return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) end += FirstCharacter(text.substr(end));
    return text.substr(0, end);
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = DecodeCharacter(bytes).length;
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

}  // namespace tamlo
