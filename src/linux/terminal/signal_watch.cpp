// Handlers that only note the signal and wake the sleeper.
#include "linux/terminal/signal_watch.h"

#include <fcntl.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <system_error>
#include <utility>

#include "services/end_of_process.h"

namespace tamlo {
namespace {

constexpr std::array watched = {SIGINT, SIGTERM, SIGHUP, SIGTSTP, SIGCONT};

volatile std::sig_atomic_t end_signal = 0;
volatile std::sig_atomic_t stop_wanted = 0;
volatile std::sig_atomic_t continued = 0;
volatile std::sig_atomic_t wake_descriptor = -1;

void Note(int signal) {
    const int error = errno;
    if (signal == SIGTSTP) {
        stop_wanted = 1;
    } else if (signal == SIGCONT) {
        continued = 1;
    } else {
        end_signal = signal;
    }
    // Never blocks; a full pipe wakes the sleeper as well.
    [[maybe_unused]] const ssize_t written = ::write(wake_descriptor, "", 1);
    errno = error;
}

const char* ReasonOf(int signal) {
    switch (signal) {
        case SIGINT: return "The game was interrupted.";
        case SIGHUP: return "The terminal was closed.";
        default: return "The game was asked to end.";
    }
}

}  // namespace

SignalWatch::SignalWatch() {
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "no pipe for signals");
    }
    readable_ = Descriptor(ends[0]);
    writable_ = Descriptor(ends[1]);
    wake_descriptor = ends[1];
    end_signal = 0;
    stop_wanted = 0;
    continued = 0;
    caught_.emplace(watched, Note);
}

SignalWatch::~SignalWatch() {
    caught_.reset();
    wake_descriptor = -1;
}

void SignalWatch::Sleep(double seconds) {
    pollfd source = {readable_.Number(), POLLIN, 0};
    ::poll(&source, 1, static_cast<int>(std::ceil(std::clamp(seconds, 0.0, 3600.0) * 1000)));
}

void SignalWatch::Check() {
    char drained[64];
    while (::read(readable_.Number(), drained, sizeof drained) > 0) {
    }
    // Kept, not taken: code that swallowed the exception would meet it again.
    if (end_signal != 0) throw EndOfProcess{0, ReasonOf(end_signal)};
}

bool SignalWatch::StopWanted() {
    const bool wanted = stop_wanted != 0;
    stop_wanted = 0;
    return wanted;
}

void SignalWatch::Stop() {
    CaughtSignals::Treat(SIGTSTP, SIG_DFL);
    ::raise(SIGTSTP);
    CaughtSignals::Treat(SIGTSTP, Note);
}

bool SignalWatch::Continued() {
    const bool was = continued != 0;
    continued = 0;
    return was;
}

}  // namespace tamlo
