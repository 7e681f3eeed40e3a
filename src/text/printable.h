// Texts made harmless for whatever shows them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamlo {

/// The text as one line that no terminal can take for a command: without blanks at its ends,
/// control characters as blanks, ill-formed UTF-8 left out. Empty if nothing is left.
std::string PrintableLine(std::string_view text);

/// Characters of well-formed UTF-8.
std::size_t CharacterCount(std::string_view text);

/// The first `count` characters of well-formed UTF-8, or all if there are fewer.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace tamlo
