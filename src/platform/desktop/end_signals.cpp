#include "platform/desktop/end_signals.h"

#include <array>
#include <atomic>

namespace tamlo {
namespace {

constexpr std::array end_signals = {SIGINT, SIGTERM, SIGHUP};

std::atomic<bool> arrived = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler must not wait");

void Note(int) {
    arrived.store(true);
}

}  // namespace

EndSignals::EndSignals() {
    arrived.store(false);
    caught_.emplace(end_signals, Note, static_cast<int>(SA_RESETHAND));
}

bool EndSignals::Arrived() const {
    return arrived.load();
}

}  // namespace tamlo
