#include "linux/terminal/terminal_mode.h"

#include <unistd.h>

namespace tamlo {
namespace {

/// Whether the terminal is ours to change. In the background it is the shell's, and trying would
/// stop this process.
bool InForeground(int terminal) {
    const pid_t group = ::tcgetpgrp(terminal);
    return group < 0 || group == ::getpgrp();
}

}  // namespace

TerminalSettings::TerminalSettings(int terminal)
    : terminal_(terminal), known_(::tcgetattr(terminal, &before_) == 0) {}

void TerminalSettings::Restore() const {
    RestoreWhen(TCSANOW);
}

void TerminalSettings::RestoreAndFlush() const {
    RestoreWhen(TCSAFLUSH);
}

void TerminalSettings::RestoreWhen(int when) const {
    if (known_ && InForeground(terminal_)) ::tcsetattr(terminal_, when, &before_);
}

void TerminalSettings::Change() const {
    if (!known_) return;
    termios raw = before_;
    // Without flow control Control+S cannot freeze what is printed.
    raw.c_iflag &= ~static_cast<tcflag_t>(ICRNL | INLCR | IGNCR | IXON | ISTRIP);
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | IEXTEN);
    raw.c_lflag |= ISIG;
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    ::tcsetattr(terminal_, TCSANOW, &raw);
}

}  // namespace tamlo
