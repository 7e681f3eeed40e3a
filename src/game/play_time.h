// Play time in hours, minutes and seconds.
#pragma once

#include "orders/clock_text.h"

namespace tamlo {

inline constexpr double start_of_day = 10800;  // the game clock as a working day begins: 3:00

/// Carries seconds of 60 or more into the minutes and minutes of 60 or more into the hours.
inline void CarryTime(int& hours, int& minutes, double& seconds) {
    if (seconds >= 60) {
        const ClockParts parts = SplitTime(seconds);
        hours += parts.hours;
        minutes += parts.minutes;
        seconds = parts.seconds;
    }
    hours += minutes / 60;
    minutes %= 60;
}

}  // namespace tamlo
