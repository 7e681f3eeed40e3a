// File names compared as the players of a system without regard to case expect: ASCII letters
// alike in both cases, every other byte only like itself.
#pragma once

#include <string_view>

namespace tamlo {

/// Negative, 0 or positive as `a` comes before, with or behind `b`.
int CompareNames(std::string_view a, std::string_view b);

/// Whether the name matches the pattern, in which '*' stands for any characters.
bool MatchesPattern(std::string_view name, std::string_view pattern);

}  // namespace tamlo
