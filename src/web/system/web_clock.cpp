#include "web/system/web_clock.h"

#include <ctime>

namespace tamlo {
namespace {

std::tm LocalTime(std::chrono::system_clock::time_point now) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm fields = {};
    ::localtime_r(&seconds, &fields);
    return fields;
}

}  // namespace

std::chrono::microseconds WebClock::Steady() const {
    return std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

double WebClock::SecondsSinceMidnight() const {
    const auto now = std::chrono::system_clock::now();
    const std::tm t = LocalTime(now);
    const std::chrono::duration<double> whole =
        std::chrono::floor<std::chrono::seconds>(now) - std::chrono::system_clock::time_point{};
    const std::chrono::duration<double> all = now.time_since_epoch();
    return 3600.0 * t.tm_hour + 60.0 * t.tm_min + t.tm_sec + (all - whole).count();
}

TimeOfDay WebClock::Now() const {
    const std::tm t = LocalTime(std::chrono::system_clock::now());
    return {t.tm_hour, t.tm_min, t.tm_sec};
}

Date WebClock::Today() const {
    const std::tm t = LocalTime(std::chrono::system_clock::now());
    return {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday};
}

}  // namespace tamlo
