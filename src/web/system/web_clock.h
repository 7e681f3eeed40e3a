// The browser's clocks, in the player's time zone.
#pragma once

#include "services/clock.h"

namespace tamlo {

class WebClock final : public Clock {
  public:
    std::chrono::microseconds Steady() const override;
    double SecondsSinceMidnight() const override;
    TimeOfDay Now() const override;
    Date Today() const override;
};

}  // namespace tamlo
