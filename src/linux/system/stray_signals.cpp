#include "services/stray_signals.h"

#include <csignal>

namespace tamlo {
namespace {

constexpr int strays[] = {SIGXFSZ,   SIGPIPE, SIGUSR1, SIGUSR2, SIGALRM,
                          SIGVTALRM, SIGPROF, SIGIO,   SIGPWR,  SIGSTKFLT};

}  // namespace

void IgnoreStraySignals() {
    for (const int signal : strays) std::signal(signal, SIG_IGN);
    for (int signal = SIGRTMIN; signal <= SIGRTMAX; ++signal) std::signal(signal, SIG_IGN);
}

}  // namespace tamlo
