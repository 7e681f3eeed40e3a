// Signals handed to a function of the program's for a while.
#pragma once

#include <csignal>
#include <span>
#include <utility>
#include <vector>

namespace tamlo {

/// While one lives, these signals go to a handler, except those that were being ignored already:
/// who starts a program so, in the background or under nohup, has said that they are not for it.
class CaughtSignals {
  public:
    using Handler = void (*)(int signal);

    /// `flags` as in sigaction. System calls that sleep are interrupted unless they say otherwise.
    CaughtSignals(std::span<const int> signals, Handler handler, int flags = 0);
    CaughtSignals(const CaughtSignals&) = delete;
    CaughtSignals& operator=(const CaughtSignals&) = delete;
    ~CaughtSignals();

    /// Gives a signal to another handler, SIG_DFL included.
    static void Treat(int signal, Handler handler, int flags = 0);

  private:
    std::vector<std::pair<int, struct sigaction>> before_;
};

}  // namespace tamlo
