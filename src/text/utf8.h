// UTF-8, decoded and encoded for the whole program. Strict: overlong forms (E0 80 80), surrogates
// (ED A0 80) and codes above 10FFFF (F4 90 80 80) are ill-formed. Where a text may be ill-formed, a
// byte that begins no character counts as one character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamlo {

struct Utf8Character {
    std::size_t length = 0;  ///< bytes; 0 if there is none
    char32_t code = 0;
};

/// The well-formed character that `text` begins with.
Utf8Character DecodeCharacter(std::string_view text);

/// The UTF-8 of a code up to 10FFFF.
std::string EncodeCharacter(char32_t code);

/// Bytes of the first character, at least 1 unless `text` is empty.
std::size_t FirstCharacter(std::string_view text);
/// Bytes of the last character, likewise.
std::size_t LastCharacter(std::string_view text);

std::size_t CountCharacters(std::string_view text);
/// The first `count` characters, or all if there are fewer.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

bool IsUtf8(std::string_view bytes);

}  // namespace tamlo
