// The table of name and member for every field of the game's record, for rehearsals: what a
// script may `set` and `show`.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

struct GameState;

/// What is wrong with setting `field` (a name, or `ordx(1)` for an element of an array) to
/// `value`; empty if nothing is. Needs no game, so that a script can be refused beforehand.
std::string WhyNotSet(std::string_view field, std::string_view value);

/// What is wrong with showing `field`; empty if nothing is.
std::string WhyNotShow(std::string_view field);

/// Gives a field a value. Precondition: WhyNotSet is empty.
void SetField(GameState& gs, std::string_view field, std::string_view value);

/// The field as `FIELD=VALUE`: integers and numbers in shortest decimal form (no exponent), texts
/// in double quotes with `\"`, `\\`, `\r`, `\n` escaped. Precondition: WhyNotShow is empty.
std::string ShowField(const GameState& gs, std::string_view field);

}  // namespace tamlo
