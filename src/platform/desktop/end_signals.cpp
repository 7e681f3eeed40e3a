// The signal handler and its flag.
#include "platform/desktop/end_signals.h"

#include <atomic>
#include <iterator>

namespace tamlo {

namespace {

std::atomic<bool> arrived = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler must not wait");

void Note(int) {
    arrived.store(true);
}

}  // namespace

EndSignals::EndSignals() {
    arrived.store(false);
    static_assert(std::size(signals_) == std::size(decltype(before_){}));
    for (std::size_t i = 0; i < std::size(signals_); ++i) {
        sigaction(signals_[i], nullptr, &before_[i]);
        // Whoever starts us in the background or under nohup has said that it is not for us.
        if (before_[i].sa_handler == SIG_IGN) continue;
        struct sigaction noted = {};
        noted.sa_handler = Note;
        noted.sa_flags = static_cast<int>(SA_RESETHAND);
        sigemptyset(&noted.sa_mask);
        sigaction(signals_[i], &noted, nullptr);
    }
}

EndSignals::~EndSignals() {
    for (std::size_t i = 0; i < std::size(signals_); ++i) {
        sigaction(signals_[i], &before_[i], nullptr);
    }
}

bool EndSignals::Arrived() const {
    return arrived.load();
}

}  // namespace tamlo
