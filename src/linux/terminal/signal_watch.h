// Signals, turned from interruptions into something that the event turns ask for.
#pragma once

#include <optional>

#include "linux/system/caught_signals.h"
#include "linux/system/descriptor.h"

namespace tamlo {

/// Catches SIGINT, SIGTERM and SIGHUP as wishes to end, SIGTSTP as a wish to stop, and SIGCONT.
/// System calls that sleep are interrupted by them. One object at a time.
class SignalWatch {
  public:
    SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;
    ~SignalWatch();

    /// Becomes readable when a signal comes and stays so until Check: for sleeping in poll.
    int Readable() const { return readable_.Number(); }
    /// Sleeps that many seconds, or until a signal comes.
    void Sleep(double seconds);
    /// Throws EndOfProcess if a signal has asked for the end.
    void Check();
    /// Whether the player has asked to stop the program; asking forgets it.
    bool StopWanted();
    /// Stops this process as the shell expects it; returns when the shell continues it.
    void Stop();
    /// Whether the process was stopped and continued since the last call.
    bool Continued();

  private:
    Descriptor readable_;
    Descriptor writable_;
    std::optional<CaughtSignals> caught_;
};

}  // namespace tamlo
