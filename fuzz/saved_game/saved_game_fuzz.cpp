// Any bytes as a saved game: refused, or a career that can go on and be stored again.
#include <cmath>
#include <string>

#include "fuzzing.h"
#include "store/saved_game.h"
#include "text/number_text.h"
#include "text/play_time.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    auto game = DecodeSavedGame(TextOf(bytes, size));
    if (!game) return 0;
    Check(std::isfinite(game->cash) && game->cash >= 0);
    Check(game->plast >= 1 && game->plast <= 3 && game->npd >= 0);
    const std::string stored = EncodeSavedGame(*game);
    const auto again = DecodeSavedGame(stored);
    Check(again && EncodeSavedGame(*again) == stored);

    // A day later it is still one.
    game->nsd += 40000.5;
    CarryTime(game->nhr, game->nmt, game->nsd);
    game->cash = Rounded(game->cash + 34.88, 2);
    Check(DecodeSavedGame(EncodeSavedGame(*game)).has_value());
    Check(!MoneyText(game->cash).empty() && !CountPicture(game->npd).starts_with('-'));
    return 0;
}
