// Checking a city streets file, for the player who wrote it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

struct CityFinding {
    enum class Weight {
        error,  ///< the game refuses the file, or the player can't find a corner
        hint,   ///< the file can be played, but something in it is probably not intended
    };
    Weight weight = Weight::hint;
    std::string text;  ///< a sentence, without a line end
};

/// A name's pronunciation: the same text for names that sound the same; empty if the name is
/// silent.
using Pronounce = std::function<std::string(const std::string& name)>;

/// All findings about the content of a streets file, errors first. Without `pronounce`, none about
/// sound.
std::vector<CityFinding> CheckCity(std::string_view bytes, const Pronounce& pronounce);

/// What the name with is this number stands for: "road 1" to "road 45" for 1 to 45, "street 1" to
/// "street 102" for 46 to 147.
std::string PlaceOfName(int name);

}  // namespace tamlo
