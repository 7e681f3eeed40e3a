// The words of one line of a script.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

struct WordsOrError {
    std::vector<std::string> words;
    std::string error;  ///< empty if the line could be read
};

/// Splits a line at blanks and tabs. A word in double quotes may contain blanks, and `\"` and `\\`
/// for these two characters.
WordsOrError SplitWords(std::string_view line);

}  // namespace tamlo
