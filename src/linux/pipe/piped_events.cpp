// Handing out piped keys, each when the game is at rest.
#include "linux/pipe/piped_events.h"

#include <algorithm>

#include "services/end_of_process.h"

namespace tamlo {
namespace {

constexpr double longest_sleep = 0.2;

// A vehicle on the road may keep the game from ever being at rest. It gets this long to say what
// it has to; then the first moment without speech will do.
constexpr std::chrono::seconds longest_wait_for_rest{60};

}  // namespace

PipedEvents::PipedEvents(KeyInput& keys, Activity& activity, SignalWatch& signals,
                         const Clock& clock)
    : keys_(keys), activity_(activity), signals_(signals), clock_(clock) {}

void PipedEvents::ShowWindow(const char*) {}

void PipedEvents::Turn(KeyListener& listener, double rest) {
    signals_.Check();
    const double until_rest = activity_.SecondsUntilRest();
    if (until_rest > 0) {
        // Keys that wait are not due, so there is nothing to wake up for but time and signals.
        signals_.Sleep(std::min({rest, longest_sleep, until_rest}));
        if (!keys_.Waiting()) keys_.Await(0);
    } else {
        keys_.Await(std::min(rest, longest_sleep));
    }
    signals_.Check();
    if (activity_.SecondsUntilRest() == 0) {
        if (const std::optional<int> key = keys_.Take()) return listener.Form_KeyDown(*key, 0);
        if (LastKeyTaken()) throw EndOfProcess{0, "The input has ended."};
    } else if (LastKeyTaken() && !activity_.IsBusy() &&
               clock_.Steady() - *ended_at_ > longest_wait_for_rest) {
        throw EndOfProcess{0, "The input has ended."};
    }
}

/// Notes the moment when it first sees that no key is to come.
bool PipedEvents::LastKeyTaken() {
    if (!keys_.Ended() || keys_.Waiting()) return false;
    if (!ended_at_) ended_at_ = clock_.Steady();
    return true;
}

void PipedEvents::Pump() {
    signals_.Check();
}

}  // namespace tamlo
