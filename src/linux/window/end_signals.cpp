#include "linux/window/end_signals.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <ctime>

namespace tamlo {
namespace {

constexpr std::array end_signals = {SIGINT, SIGTERM, SIGHUP};

constexpr std::int64_t echo_time = 1'000'000'000;  // ns

constexpr unsigned longest_end = 5;  // s; a queue of many thousands of keys may take longer

volatile std::sig_atomic_t first_signal = 0;
std::atomic<std::int64_t> first_arrival = 0;  // on the steady clock; 0 before it
static_assert(std::atomic<std::int64_t>::is_always_lock_free, "a signal handler must not wait");

void Kill(int signal) {
    std::signal(signal, SIG_DFL);
    std::raise(signal);  // once the handler has returned
}

void Note(int signal) {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    const std::int64_t now = time.tv_sec * INT64_C(1'000'000'000) + time.tv_nsec;
    std::int64_t none = 0;
    if (first_arrival.compare_exchange_strong(none, now)) {
        first_signal = signal;
        ::alarm(longest_end);
        return;
    }
    if (now - none >= echo_time) Kill(signal);
}

/// Another alarm means nothing: see IgnoreStraySignals.
void NoteAlarm(int) {
    if (first_arrival.load() != 0) Kill(first_signal);
}

}  // namespace

EndSignals::EndSignals() {
    first_arrival.store(0);
    caught_.emplace(end_signals, Note);
    ::sigaction(SIGALRM, nullptr, &alarm_before_);
    CaughtSignals::Treat(SIGALRM, NoteAlarm);  // it may be ignored
}

EndSignals::~EndSignals() {
    if (Arrived()) ::alarm(0);
    ::sigaction(SIGALRM, &alarm_before_, nullptr);
}

bool EndSignals::Arrived() const {
    return first_arrival.load() != 0;
}

}  // namespace tamlo
