// What is wrong with a city streets file, told to the player who wrote it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

struct CityFinding {
    enum class Weight {
        error,  ///< the game refuses the file, or the player can't find a corner
        hint,   ///< it can be played, but is not as it was meant
    };
    Weight weight = Weight::hint;
    std::string text;  // a sentence, without an end of line
};

/// What a name sounds like, the same text for names that sound the same; empty if it is silent.
using Pronounce = std::function<std::string(const std::string& name)>;

/// Every finding on the content of a streets file, errors first. Without `pronounce` nothing is
/// said about sound.
std::vector<CityFinding> CheckCity(std::string_view bytes, const Pronounce& pronounce);

/// How a name's place is called: 1 to 45 "road 1" to "road 45", 46 to 147 "street 1" to
/// "street 102".
std::string PlaceOfName(int name);

}  // namespace tamlo
