// Words for what the speech engine would read wrongly: amounts of money and clock times. Also
// what of a text may reach the engine at all.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamlo {

/// The text with its amounts and times in words for an English voice, everything else as it was:
/// "$17.45" becomes "17 dollars and 45 cents", "$20." "20 dollars", "3:05" "3 oh 5" and "3:00"
/// "3 o'clock". A time is one or more digits (hours go on past 24), a colon and a minute of one or
/// two digits below 60, standing alone: parts of words, dates and names keep their colons.
/// Takes time in proportion to the length of the text.
std::string WithSpokenAmounts(std::string_view text);

/// The text as well-formed UTF-8 without what an engine may take for a command: ill-formed bytes
/// and private characters are dropped, control characters become blanks (line feeds stay).
std::string CleanedForSpeech(std::string_view text);

/// The text's code point if it has exactly one, else 0. `text` must be well-formed UTF-8.
char32_t SingleCharacter(std::string_view text);

}  // namespace tamlo
