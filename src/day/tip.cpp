#include "day/tip.h"

#include <algorithm>

namespace tamlo {

double Tip(double price, double expected, double trip_time) {
    const double percent = std::min(18 + (expected - trip_time) / 25, 30.0);
    const double tip = price * percent / 100;
    return tip < 0 ? 0.02 : tip;
}

}  // namespace tamlo
