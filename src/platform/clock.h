// Time: a steady clock for delays, and the wall clock and calendar.
#pragma once

#include <chrono>

namespace tamlo {

struct TimeOfDay {
    int hour = 0;  ///< 0 to 23
    int minute = 0;
    int second = 0;
};

struct Date {
    int year = 0;
    int month = 1;  ///< 1 to 12
    int day = 1;
};

class Clock {
  public:
    virtual ~Clock() = default;
    /// Time since some fixed moment; never goes back and ignores changes of the wall clock.
    virtual std::chrono::microseconds Steady() const = 0;
    /// Local time: seconds since midnight, with fractions.
    virtual double SecondsSinceMidnight() const = 0;
    virtual TimeOfDay Now() const = 0;
    virtual Date Today() const = 0;
};

}  // namespace tamlo
