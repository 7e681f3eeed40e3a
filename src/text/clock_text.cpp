#include "text/clock_text.h"

#include <algorithm>
#include <cmath>

#include "text/number_text.h"

namespace tamlo {
namespace {

constexpr double longest_time = 1e9;  // seconds; longer times would overflow the hours

std::string Counted(double number, const std::string& unit) {
    return Plain(number) + " " + unit + (number == 1 ? "" : "s");
}

}  // namespace

ClockParts SplitTime(double seconds) {
    if (!(seconds >= 0)) return {0, 0, seconds};
    seconds = std::min(seconds, longest_time);
    ClockParts parts;
    parts.hours = static_cast<int>(seconds / 3600);
    seconds -= parts.hours * 3600.0;
    parts.minutes = static_cast<int>(seconds / 60);
    parts.seconds = seconds - parts.minutes * 60.0;
    return parts;
}

std::string GameTime(double seconds) {
    const ClockParts parts = SplitTime(seconds);
    const std::string minutes = std::to_string(parts.minutes);
    return std::to_string(parts.hours) + ":" + (parts.minutes < 10 ? "0" : "") + minutes;
}

std::string TripTime(double seconds) {
    const ClockParts parts = SplitTime(seconds);
    return Counted(parts.hours * 60 + parts.minutes, "minute") + " and " +
           Counted(parts.seconds, "second");
}

std::string RealTime(TimeOfDay time) {
    const int hour = time.hour > 12 ? time.hour - 12 : time.hour;
    return std::to_string(hour) + ":" + std::to_string(time.minute);
}

}  // namespace tamlo
