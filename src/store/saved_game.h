// The bytes of the saved game.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamlo {

struct SavedGame {
    double cash = 0;
    int plast = 1;   ///< 1 to 3
    int nhr = 0;     ///< 0 or more
    int nmt = 0;     ///< 0 to 59
    double nsd = 0;  ///< 0 to under 60
    int npd = 0;     ///< 0 or more; a file may end before it
};

std::string EncodeSavedGame(const SavedGame& game);

/// Nothing if the bytes can't be decoded: an unknown tag, an end that is not after five or six
/// values, a value that is not a number, a vehicle outside 1 to 3, negative or impossible totals.
std::optional<SavedGame> DecodeSavedGame(std::string_view bytes);

}  // namespace tamlo
