// The terminal's line settings while the game reads its keys.
#pragma once

#include <termios.h>

namespace tamlo {

/// Has the terminal deliver every key at once and unshown, interrupt and stop keys apart, and
/// gives it back as it was at the end, even if the program crashes. One object at a time.
class TerminalMode {
  public:
    /// `terminal` is an open descriptor. If it is no terminal nothing is changed at any time.
    explicit TerminalMode(int terminal);
    TerminalMode(const TerminalMode&) = delete;
    TerminalMode& operator=(const TerminalMode&) = delete;
    ~TerminalMode();

    void Enter();
    /// Back to what the terminal was before, for another program or the shell.
    void Leave();

  private:
    int terminal_;
    bool known_ = false;  ///< whether `before_` could be read
    termios before_ = {};
};

}  // namespace tamlo
