// Changing the terminal's settings, and the handlers that change them back in a crash.
#include "platform/terminal/terminal_mode.h"

#include <unistd.h>

#include <csignal>

namespace tamlo {
namespace {

constexpr int crashes[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGQUIT};

// For the crash handler, which may use nothing but plain memory and system calls.
int changed_terminal = -1;
termios settings_before = {};

void RestoreAndCrash(int signal) {
    ::tcsetattr(changed_terminal, TCSANOW, &settings_before);
    // The handler counts once only, so this time the signal does what it always does.
    ::raise(signal);
}

void TreatCrashes(bool restore) {
    for (const int signal : crashes) {
        struct sigaction current = {};
        ::sigaction(signal, nullptr, &current);
        // A sanitizer's own handler, say, is left alone.
        if (current.sa_handler != (restore ? SIG_DFL : RestoreAndCrash)) continue;
        struct sigaction action = {};
        action.sa_handler = restore ? RestoreAndCrash : SIG_DFL;
        action.sa_flags = restore ? static_cast<int>(SA_RESETHAND | SA_NODEFER) : 0;
        ::sigaction(signal, &action, nullptr);
    }
}

/// Whether the terminal is ours to change. In the background it is the shell's, and trying would
/// stop this process.
bool InForeground(int terminal) {
    const pid_t group = ::tcgetpgrp(terminal);
    return group < 0 || group == ::getpgrp();
}

}  // namespace

TerminalMode::TerminalMode(int terminal) : terminal_(terminal) {
    known_ = ::tcgetattr(terminal_, &before_) == 0;
    if (!known_) return;
    settings_before = before_;
    changed_terminal = terminal_;
    TreatCrashes(true);
    Enter();
}

TerminalMode::~TerminalMode() {
    if (!known_) return;
    Leave();
    TreatCrashes(false);
    changed_terminal = -1;
}

void TerminalMode::Enter() {
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

void TerminalMode::Leave() {
    if (known_ && InForeground(terminal_)) ::tcsetattr(terminal_, TCSANOW, &before_);
}

}  // namespace tamlo
