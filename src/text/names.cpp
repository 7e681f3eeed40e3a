// Comparing names without regard to case.
#include "text/names.h"

#include <algorithm>

namespace tamlo {
namespace {

int Lower(char c) {
    const int code = static_cast<unsigned char>(c);
    return code >= 'A' && code <= 'Z' ? code - 'A' + 'a' : code;
}

}  // namespace

int CompareNames(std::string_view a, std::string_view b) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (const int difference = Lower(a[i]) - Lower(b[i]); difference != 0) return difference;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    // On a mismatch only the last star has to take one more character, so the time is at most the
    // product of the lengths.
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t taken = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            taken = n;
        } else if (p < pattern.size() && Lower(pattern[p]) == Lower(name[n])) {
            ++p;
            ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace tamlo
