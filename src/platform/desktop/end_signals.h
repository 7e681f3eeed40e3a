// Signals by which the system asks the program to end, noted for whoever waits next.
#pragma once

#include <optional>

#include "platform/system/caught_signals.h"

namespace tamlo {

/// While one lives, SIGINT, SIGTERM and SIGHUP are noted instead of killing the process. Each kills
/// as ever when it comes a second time, so that a program that is stuck can still be ended. At most
/// one may live at a time.
class EndSignals {
  public:
    EndSignals();

    /// Whether one of the signals has arrived since construction. A poll or sleep of the main
    /// thread that is under way when it arrives is interrupted.
    bool Arrived() const;

  private:
    std::optional<CaughtSignals> caught_;
};

}  // namespace tamlo
