// The machine's clocks.
#pragma once

#include "services/clock.h"

namespace tamlo {

class SystemClock : public Clock {
  public:
    SystemClock();
    std::chrono::microseconds Steady() const override;
    double SecondsSinceMidnight() const override;
    TimeOfDay Now() const override;
    Date Today() const override;
};

}  // namespace tamlo
