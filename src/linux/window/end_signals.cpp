#include "linux/window/end_signals.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <ctime>

namespace tamlo {
namespace {

constexpr std::array end_signals = {SIGINT, SIGTERM, SIGHUP};

constexpr std::int64_t echo_time = 1'000'000'000;  // ns

std::atomic<std::int64_t> first_arrival = 0;  // on the steady clock; 0 before it
static_assert(std::atomic<std::int64_t>::is_always_lock_free, "a signal handler must not wait");

void Note(int signal) {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    const std::int64_t now = time.tv_sec * INT64_C(1'000'000'000) + time.tv_nsec;
    std::int64_t none = 0;
    if (first_arrival.compare_exchange_strong(none, now) || now - none < echo_time) return;
    std::signal(signal, SIG_DFL);
    std::raise(signal);  // once this handler has returned
}

}  // namespace

EndSignals::EndSignals() {
    first_arrival.store(0);
    caught_.emplace(end_signals, Note);
}

bool EndSignals::Arrived() const {
    return first_arrival.load() != 0;
}

}  // namespace tamlo
