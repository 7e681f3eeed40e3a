// The terminal's line settings while the game reads its keys.
#pragma once

#include <termios.h>

namespace tamlo {

/// A terminal's settings as they were when this object was made.
class TerminalSettings {
  public:
    /// `terminal` is an open descriptor. If it is no terminal nothing is changed at any time.
    explicit TerminalSettings(int terminal);

    /// Gives them back, unless the terminal is the shell's: this process is in the background.
    void Restore() const;
    /// The same, and drops the keys that nobody has read.
    void RestoreAndFlush() const;
    /// Has the terminal deliver every key at once and unshown, interrupt and stop keys apart.
    void Change() const;

  private:
    void RestoreWhen(int when) const;

    int terminal_;
    termios before_ = {};
    bool known_;  ///< whether they could be read
};

/// Has the terminal deliver keys to the game, and gives it back as it was at the end.
class TerminalMode {
  public:
    explicit TerminalMode(int terminal) : before_(terminal) { Enter(); }
    TerminalMode(const TerminalMode&) = delete;
    TerminalMode& operator=(const TerminalMode&) = delete;
    ~TerminalMode() { Leave(); }

    void Enter() { before_.Change(); }
    /// Back to what the terminal was before, for another program or the shell.
    void Leave() { before_.Restore(); }

  private:
    TerminalSettings before_;
};

}  // namespace tamlo
