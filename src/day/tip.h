// The tip at the door.
#pragma once

namespace tamlo {

/// Dollars for an order of `price` at a door reached at `trip_time` and expected at `expected`
/// (game seconds): 18 percent on time, one percent more for every 25 seconds early, 30 at most, one
/// less for every 25 seconds late; 2 cents if that would be less than nothing.
double Tip(double price, double expected, double trip_time);

}  // namespace tamlo
