// Game time in hours, minutes and seconds, and as it is spoken.
#pragma once

#include <string>

#include "services/date.h"

namespace tamlo {

struct ClockParts {
    int hours = 0;
    int minutes = 0;     ///< 0 to 59
    double seconds = 0;  ///< 0 to under 60
};

/// Splits a time of 0 or more seconds. A negative time stays in the seconds.
ClockParts SplitTime(double seconds);

/// The game clock: 10800 is "3:00". Hours continue after 12 and 24; seconds are left out.
std::string GameTime(double seconds);

/// "2 minutes and 1 second": a unit is singular for exactly 1.
std::string TripTime(double seconds);

/// The real time on a twelve-hour clock, minutes without a leading zero: "2:5" for 14:05.
std::string RealTime(TimeOfDay time);

}  // namespace tamlo
