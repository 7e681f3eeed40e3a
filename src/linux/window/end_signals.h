// Signals by which the system asks the program to end, noted for the next wait.
#pragma once

#include <optional>

#include "linux/system/caught_signals.h"

namespace tamlo {

/// While one lives, SIGINT, SIGTERM and SIGHUP are noted instead of killing the process. One that
/// comes more than a second after the first kills as ever, so that a program that is stuck can
/// still be ended; sooner, it is an echo: systems send several at once, and to parent and child. A
/// program that has not ended five seconds after the first is killed by that signal. At most one
/// may live at a time.
class EndSignals {
  public:
    EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

    /// Whether one of the signals has arrived since construction. A poll or sleep of the main
    /// thread that is under way when it arrives is interrupted.
    bool Arrived() const;

  private:
    std::optional<CaughtSignals> caught_;
    struct sigaction alarm_before_ = {};
};

}  // namespace tamlo
