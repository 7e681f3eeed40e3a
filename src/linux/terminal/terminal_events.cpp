// Event turns in a terminal.
#include "linux/terminal/terminal_events.h"

#include <algorithm>

#include "services/end_of_process.h"

namespace tamlo {
namespace {

// Nothing the game waits for can be missed for longer than this, whatever it asked for.
constexpr double longest_sleep = 0.2;

[[noreturn]] void EndHungUp() {
    throw EndOfProcess{0, "The terminal was closed."};
}

}  // namespace

TerminalEvents::TerminalEvents(KeyInput& keys, TerminalMode& mode, SignalWatch& signals)
    : keys_(keys), mode_(mode), signals_(signals) {}

void TerminalEvents::ShowWindow(const char*) {}

void TerminalEvents::Turn(KeyListener& listener, double rest) {
    HandleSignals();
    keys_.Await(std::min(rest, longest_sleep));
    HandleSignals();
    if (const std::optional<int> key = keys_.Take()) {
        listener.Form_KeyDown(*key, 0);
    } else if (keys_.Ended() && !keys_.Waiting()) {
        EndHungUp();
    }
}

void TerminalEvents::Pump() {
    HandleSignals();
    if (keys_.HungUp()) EndHungUp();
    keys_.TakeNote();
}

void TerminalEvents::HandleSignals() {
    signals_.Check();
    if (signals_.StopWanted()) {
        tell_stop_(true);
        mode_.Leave();
        signals_.Stop();
    }
    // Also after a stop that could not be foreseen: the shell has changed the terminal meanwhile.
    if (signals_.Continued()) {
        mode_.Enter();
        tell_stop_(false);
    }
}

}  // namespace tamlo
