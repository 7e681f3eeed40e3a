// Play time in hours, minutes and seconds.
#pragma once

#include <algorithm>
#include <limits>

#include "text/clock_text.h"

namespace tamlo {

inline constexpr double start_of_day =
    10800;  ///< the game clock at the start of a working day: 3:00

/// The sum of a total and an addition, both 0 or more; the largest int if the sum is larger, as it
/// can be in a career from a damaged file.
inline int AddedUp(int total, int more) {
    return total + std::min(more, std::numeric_limits<int>::max() - total);
}

/// Carries seconds of 60 or more into the minutes and minutes of 60 or more into the hours.
inline void CarryTime(int& hours, int& minutes, double& seconds) {
    if (seconds >= 60) {
        const ClockParts parts = SplitTime(seconds);
        hours = AddedUp(hours, parts.hours);
        minutes += parts.minutes;
        seconds = parts.seconds;
    }
    hours = AddedUp(hours, minutes / 60);
    minutes %= 60;
}

}  // namespace tamlo
