// Texts as they are shown: without control characters, or in quotes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

/// The text as one line that no terminal takes for a command: without blanks at its ends, control
/// characters as blanks, ill-formed UTF-8 left out. Empty if nothing is left.
std::string PrintableLine(std::string_view text);

/// The line in rows of at most `columns` characters, broken at blanks, which are dropped there. A
/// longer word is cut. One row if `columns` is 0.
std::vector<std::string_view> BrokenAtWords(std::string_view line, std::size_t columns);

/// The text in double quotes, with `\"`, `\\`, `\r` and `\n` for these four characters.
std::string Quoted(std::string_view text);

}  // namespace tamlo
