// Texts as they are shown: without control characters, or in quotes.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

/// The text as one line that no terminal takes for a command: without blanks at its ends, control
/// characters as blanks, ill-formed UTF-8 left out. Empty if nothing is left.
std::string PrintableLine(std::string_view text);

/// The text in double quotes, with `\"`, `\\`, `\r` and `\n` for these four characters.
std::string Quoted(std::string_view text);

}  // namespace tamlo
