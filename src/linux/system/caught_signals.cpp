#include "linux/system/caught_signals.h"

namespace tamlo {

CaughtSignals::CaughtSignals(std::span<const int> signals, Handler handler, int flags) {
    for (const int signal : signals) {
        struct sigaction before = {};
        ::sigaction(signal, nullptr, &before);
        before_.emplace_back(signal, before);
        if (before.sa_handler != SIG_IGN) Treat(signal, handler, flags);
    }
}

CaughtSignals::~CaughtSignals() {
    for (const auto& [signal, before] : before_) ::sigaction(signal, &before, nullptr);
}

void CaughtSignals::Treat(int signal, Handler handler, int flags) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
}

}  // namespace tamlo
