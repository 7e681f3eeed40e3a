// Time: a steady clock for delays, and the wall clock and calendar.
#pragma once

#include <chrono>

#include "services/date.h"

namespace tamlo {

class Clock {
  public:
    virtual ~Clock() = default;
    /// Time since a fixed moment. Never goes back; changes of the wall clock don't matter.
    virtual std::chrono::microseconds Steady() const = 0;
    /// Local time: seconds since midnight, with fractions.
    virtual double SecondsSinceMidnight() const = 0;
    virtual TimeOfDay Now() const = 0;
    virtual Date Today() const = 0;
};

}  // namespace tamlo
