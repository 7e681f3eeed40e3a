// Sleeping in poll for keys, signals and deadlines at once.
#include "linux/terminal/key_input.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace tamlo {
namespace {

using Time = TerminalKeys::Time;

timespec AsTimespec(Time time) {
    const auto microseconds = std::max<Time::rep>(time.count(), 0);
    return {static_cast<time_t>(microseconds / 1000000),
            static_cast<long>(microseconds % 1000000) * 1000};
}

}  // namespace

KeyInput::KeyInput(int descriptor, Gaps gaps, const Clock& clock, SignalWatch& signals)
    : descriptor_(descriptor), gaps_(gaps), clock_(clock), signals_(signals), keys_(gaps) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    pressed_ = Descriptor(ends[0]);
    presser_ = Descriptor(ends[1]);
}

void KeyInput::Press(int code) {
    const auto byte = static_cast<unsigned char>(code);
    [[maybe_unused]] const ssize_t written = ::write(presser_.Number(), &byte, 1);
}

void KeyInput::TakePressed() {
    unsigned char code = 0;
    while (::read(pressed_.Number(), &code, 1) == 1) keys_.Press(code);
}

void KeyInput::TakeNote() {
    keys_.ComeTogether();
    ReadAll();
}

/// Reads what there is, but not for ever.
void KeyInput::ReadAll() {
    constexpr int most_reads = 64;
    for (int reads = 0; reads < most_reads; ++reads) {
        pollfd source = {ended_ ? -1 : descriptor_, POLLIN, 0};
        if (::poll(&source, 1, 0) <= 0) break;
        Read();
    }
    TakePressed();
    keys_.Settle(clock_.Steady());
}

void KeyInput::Await(double seconds) {
    if (keys_.Together()) ReadAll();  // what came after the wait's last look
    constexpr double longest = 3600;
    const Time end =
        clock_.Steady() + Time(static_cast<Time::rep>(std::clamp(seconds, 0.0, longest) * 1e6));
    // No more is read while keys wait, so a long paste stays where it is.
    while (!keys_.Waiting()) {
        const Time now = clock_.Steady();
        const Time until = std::min(end, keys_.Deadline().value_or(end));
        const bool signal = SleepOnce(until - now);
        keys_.Settle(clock_.Steady());
        if (signal || ended_ || clock_.Steady() >= end) return;
    }
}

/// Sleeps at most that long and reads what has come; true if a signal is to be looked at.
bool KeyInput::SleepOnce(Time longest) {
    pollfd sources[] = {{signals_.Readable(), POLLIN, 0},
                        {ended_ ? -1 : descriptor_, POLLIN, 0},
                        {pressed_.Number(), POLLIN, 0}};
    const timespec timeout = AsTimespec(longest);
    if (::ppoll(sources, std::size(sources), &timeout, nullptr) < 0) return true;
    if (sources[1].revents != 0) Read();
    if (sources[2].revents != 0) TakePressed();
    return sources[0].revents != 0;
}

void KeyInput::Read() {
    char bytes[256];
    // From a pipe no more than what is needed: the rest is for the game that a restart begins.
    const ssize_t count = ::read(descriptor_, bytes, gaps_ == Gaps::lost ? 1 : sizeof bytes);
    if (count > 0) {
        keys_.Feed({bytes, static_cast<std::size_t>(count)}, clock_.Steady());
    } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
        ended_ = true;
        keys_.Finish();
    }
}

bool KeyInput::HungUp() const {
    pollfd source = {descriptor_, 0, 0};
    return ::poll(&source, 1, 0) > 0;
}

}  // namespace tamlo
