// Comparing file names without regard to the case of ASCII letters; every other byte equals only
// itself.
#pragma once

#include <string_view>

namespace tamlo {

/// Negative, 0 or positive if `a` comes before, is equal to, or comes after `b`.
int CompareNames(std::string_view a, std::string_view b);

/// Whether the name matches the pattern, in which '*' stands for any characters.
bool MatchesPattern(std::string_view name, std::string_view pattern);

}  // namespace tamlo
