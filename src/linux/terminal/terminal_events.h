// The event queue of a game that is played in a terminal.
#pragma once

#include <functional>
#include <utility>

#include "linux/terminal/key_input.h"
#include "linux/terminal/terminal_mode.h"
#include "services/events.h"

namespace tamlo {

/// Keys come from the terminal, never more than one a turn. Turn and Pump throw EndOfProcess when
/// a signal asks for the end or the terminal has hung up; when the player stops the program, they
/// give the terminal back to the shell until it is continued.
class TerminalEvents : public Events {
  public:
    /// Everything must outlive this object; `keys` reads the terminal that `mode` prepares.
    TerminalEvents(KeyInput& keys, TerminalMode& mode, SignalWatch& signals);

    void ShowWindow(const char* caption) override;
    void Turn(KeyListener& listener, double rest) override;
    /// Told before the shell has the terminal back, and when the game has it again.
    void OnStop(std::function<void(bool stopped)> tell) { tell_stop_ = std::move(tell); }
    /// For a wait that is no event turn, as for a sentence to be spoken in full. Of the keys that
    /// come meanwhile, the next turn brings the last.
    void Pump();

  private:
    void HandleSignals();

    KeyInput& keys_;
    TerminalMode& mode_;
    SignalWatch& signals_;
    std::function<void(bool)> tell_stop_ = [](bool) {};
};

}  // namespace tamlo
