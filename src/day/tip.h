// What happens at the door, in numbers and words: the tip, and what the driver calls the item.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

/// Dollars for an order of `price` at a door reached at `trip_time` and expected at `expected`
/// (game seconds): 18 percent on time, one more for every 25 seconds ahead, 30 at most, one less
/// for every 25 behind; 2 cents where that would be less than nothing.
double Tip(double price, double expected, double trip_time);

/// The item out of an order's sentence: from the size to the word "tamlo" and the character
/// behind it. Ten tamlos leave a blank in front of the size, which the greeting keeps.
std::string ItemPhrase(std::string_view order_text);

}  // namespace tamlo
