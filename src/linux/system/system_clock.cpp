// The machine's clocks, in the player's time zone.
#include "linux/system/system_clock.h"

#include <ctime>

namespace tamlo {
namespace {

struct LocalTime {
    std::tm fields = {};
    double fraction = 0;  ///< of the second begun
};

LocalTime ReadLocalTime() {
    std::timespec now = {};
    std::timespec_get(&now, TIME_UTC);
    LocalTime local;
    ::localtime_r(&now.tv_sec, &local.fields);
    local.fraction = static_cast<double>(now.tv_nsec) * 1e-9;
    return local;
}

}  // namespace

SystemClock::SystemClock() {
    ::tzset();
}

std::chrono::microseconds SystemClock::Steady() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now);
}

double SystemClock::SecondsSinceMidnight() const {
    const LocalTime local = ReadLocalTime();
    const std::tm& t = local.fields;
    return 3600.0 * t.tm_hour + 60.0 * t.tm_min + t.tm_sec + local.fraction;
}

TimeOfDay SystemClock::Now() const {
    const std::tm t = ReadLocalTime().fields;
    return {t.tm_hour, t.tm_min, t.tm_sec};
}

Date SystemClock::Today() const {
    const std::tm t = ReadLocalTime().fields;
    return {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday};
}

}  // namespace tamlo
