// Texts cut into pieces for an engine that thinks a piece over before its first sound.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

/// What an engine is given at once.
struct Sentence {
    std::string text;         ///< words of ASCII letters, with , . ? ' and a mark at the end
    double pause_behind = 0;  ///< seconds at the normal rate
};

/// Takes time in proportion to the length of the text. `text` must be well-formed UTF-8. Sentences
/// have no more than 24 words, and 200 characters; a text without words has none.
std::vector<Sentence> SentencesOf(std::string_view text);

}  // namespace tamlo
