// Play time in hours, minutes and seconds.
#pragma once

#include <algorithm>
#include <limits>

#include "text/clock_text.h"

namespace tamlo {

inline constexpr double start_of_day = 10800;  // the game clock as a working day begins: 3:00

/// A total and what comes to it, both 0 or more. The most that fits stands for anything above: a
/// career from a damaged file may begin there.
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
