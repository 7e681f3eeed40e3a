#include "store/saved_game.h"

#include <limits>

#include "store/tagged_values.h"

namespace tamlo {

std::string EncodeSavedGame(const SavedGame& game) {
    std::string bytes;
    AppendNumber(bytes, game.cash);
    AppendInteger(bytes, game.plast);
    AppendInteger(bytes, game.nhr);
    AppendInteger(bytes, game.nmt);
    AppendNumber(bytes, game.nsd);
    AppendInteger(bytes, game.npd);
    return bytes;
}

std::optional<SavedGame> DecodeSavedGame(std::string_view bytes) {
    constexpr int most = std::numeric_limits<int>::max();
    TaggedReader reader(bytes);
    const auto cash = reader.Number();
    const auto plast = reader.Whole(1, 3);
    const auto nhr = reader.Whole(0, most);
    const auto nmt = reader.Whole(0, 59);
    const auto nsd = reader.Number();
    if (!cash || *cash < 0 || !plast || !nhr || !nmt || !nsd || *nsd < 0 || *nsd >= 60) {
        return std::nullopt;
    }
    SavedGame game{*cash, *plast, *nhr, *nmt, *nsd, 0};
    if (reader.AtEnd()) return game;
    const auto npd = reader.Whole(0, most);
    if (!npd || !reader.AtEnd()) return std::nullopt;
    game.npd = *npd;
    return game;
}

}  // namespace tamlo
