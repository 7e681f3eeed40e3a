// Numbers and marks as words, for an engine that reads nothing but words.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

/// Digits in words: "1850" is "one thousand eight hundred fifty". Digit by digit from ten digits
/// on, and when the first of several is 0. `digits` must not be empty.
std::string NumberInWords(std::string_view digits);

/// "21" is "twenty first".
std::string OrdinalInWords(std::string_view digits);

/// A character as it is told when it stands alone: letters, digits and marks by their names.
/// Nothing for a blank; what has no name here is a "character".
std::string CharacterName(char32_t character);

/// What stands for a character within a text, in ASCII: letters without their accents, digits, the
/// marks . , ? ' - and line feeds; " and " for "&"; a blank for what is silent.
std::string InPlainLetters(char32_t character);

}  // namespace tamlo
