// Access by name to every field of the game's record: what a rehearsal's script may `set` and
// `show`.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

struct GameState;

/// Why `field` (a name, or `ordx(1)` for an element of an array) can't be set to `value`; empty if
/// it can. Needs no game, so that a script is checked before it runs.
std::string WhyNotSet(std::string_view field, std::string_view value);

/// Why `field` can't be shown; empty if it can.
std::string WhyNotShow(std::string_view field);

/// Gives a field a value. Precondition: WhyNotSet is empty.
void SetField(GameState& gs, std::string_view field, std::string_view value);

/// The field as `FIELD=VALUE`: integers and numbers in shortest decimal form (no exponent), texts
/// in double quotes with `\"`, `\\`, `\r`, `\n` escaped. Precondition: WhyNotShow is empty.
std::string ShowField(const GameState& gs, std::string_view field);

}  // namespace tamlo
