#include "rehearsal/words.h"

namespace tamlo {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Reads the quoted text that `rest` begins with into `word`, and takes it off, including the
/// closing quote. Returns what is wrong, or an empty text.
std::string TakeQuoted(std::string_view& rest, std::string& word) {
    rest.remove_prefix(1);
    while (!rest.empty()) {
        const char c = rest.front();
        rest.remove_prefix(1);
        if (c == '"') {
            if (rest.empty() || IsBlank(rest.front())) return "";
            return "a blank is missing after the closing quote";
        }
        if (c == '\\') {
            if (rest.empty() || (rest.front() != '"' && rest.front() != '\\')) {
                return "only \\\" and \\\\ may follow a backslash in quotes";
            }
            word += rest.front();
            rest.remove_prefix(1);
        } else {
            word += c;
        }
    }
    return "the closing quote is missing";
}

std::string TakeBare(std::string_view& rest, std::string& word) {
    while (!rest.empty() && !IsBlank(rest.front())) {
        if (rest.front() == '"') return "a quote in the middle of a word";
        word += rest.front();
        rest.remove_prefix(1);
    }
    return "";
}

}  // namespace

WordsOrError SplitWords(std::string_view line) {
    WordsOrError result;
    for (std::string_view rest = line; !rest.empty();) {
        if (IsBlank(rest.front())) {
            rest.remove_prefix(1);
            continue;
        }
        std::string& word = result.words.emplace_back();
        result.error = rest.front() == '"' ? TakeQuoted(rest, word) : TakeBare(rest, word);
        if (!result.error.empty()) break;
    }
    return result;
}

}  // namespace tamlo
