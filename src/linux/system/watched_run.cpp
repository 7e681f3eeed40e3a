// The parent takes its signals one after the other, so it needs no handlers.
#include "linux/system/watched_run.h"

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "linux/system/crash_notes.h"
#include "linux/system/descriptor.h"

namespace tamlo {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr int end_signals[] = {SIGTERM, SIGINT, SIGHUP, SIGQUIT};

/// The signals the parent deals with: not those that were ignored at its start.
sigset_t SignalsToTake() {
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGCHLD);
    const auto add = [&](int signal) {
        struct sigaction current = {};
        ::sigaction(signal, nullptr, &current);
        if (current.sa_handler != SIG_IGN) ::sigaddset(&signals, signal);
    };
    std::for_each(std::begin(end_signals), std::end(end_signals), add);
    add(SIGTSTP);
    return signals;
}

/// Takes the next signal; false if the time is over first.
bool TakeSignal(const sigset_t& signals, SteadyClock::time_point until, siginfo_t& taken) {
    using std::chrono::nanoseconds;
    const auto left = std::max(nanoseconds(until - SteadyClock::now()), nanoseconds(0)).count();
    const timespec time = {static_cast<time_t>(left / 1'000'000'000), left % 1'000'000'000};
    return ::sigtimedwait(&signals, &taken, &time) > 0;
}

class Watcher {
  public:
    Watcher(pid_t child, const sigset_t& signals) : child_(child), signals_(signals) {}

    /// The status of the child's end, as waitpid tells it.
    int Await(SteadyClock::time_point until) {
        for (;;) {
            int status = 0;
            const pid_t changed = ::waitpid(child_, &status, WNOHANG | WUNTRACED);
            if (changed < 0 && errno != EINTR) return 0;
            if (changed == child_ && !WIFSTOPPED(status)) return status;
            if (changed == child_) {
                FollowStop(WSTOPSIG(status));
                continue;
            }
            siginfo_t taken = {};
            if (TakeSignal(signals_, until, taken)) {
                PassOn(taken);
            } else if (SteadyClock::now() >= until) {
                ::kill(child_, SIGKILL);
                until = SteadyClock::time_point::max();
            }
        }
    }

  private:
    void PassOn(const siginfo_t& taken) const {
        // What the terminal's keys send has reached the child as well; a hang-up has not.
        const bool from_keys = taken.si_code == SI_KERNEL && taken.si_signo != SIGHUP;
        if (taken.si_signo != SIGCHLD && !from_keys) ::kill(child_, taken.si_signo);
    }

    /// The shell looks at the parent only. The child has given the terminal back before it
    /// stopped, so the parent has to be the second.
    void FollowStop(int signal) const {
        if (signal == SIGSTOP) return;  // not from the terminal
        ::signal(signal, SIG_DFL);
        ::raise(signal);
        sigset_t stop;
        ::sigemptyset(&stop);
        ::sigaddset(&stop, signal);
        ::sigprocmask(SIG_UNBLOCK, &stop, nullptr);  // stops here, if it was blocked
        ::sigprocmask(SIG_BLOCK, &signals_, nullptr);
        ::kill(child_, SIGCONT);
    }

    pid_t child_;
    sigset_t signals_;
};

[[noreturn]] void BecomeChild(const std::function<int()>& program, pid_t parent,
                              const sigset_t& unblocked, int notes) {
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != parent) ::_exit(1);  // killed before it could be watched as well
    ::sigprocmask(SIG_SETMASK, &unblocked, nullptr);
    LeaveCrashNotesIn(notes);
    std::exit(program());
}

std::string ContentOf(int notes) {
    std::string text(65536, '\0');
    const ssize_t length = ::pread(notes, text.data(), text.size(), 0);
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return text;
}

}  // namespace

bool AsksToEnd(int signal) {
    return std::find(std::begin(end_signals), std::end(end_signals), signal) !=
           std::end(end_signals);
}

RunEnd RunWatched(const std::function<int()>& program, std::chrono::seconds longest) {
    ::signal(SIGCHLD, SIG_DFL);  // if it were ignored, no end would be told
    const sigset_t signals = SignalsToTake();
    sigset_t before;
    ::sigprocmask(SIG_BLOCK, &signals, &before);
    const Descriptor notes(::memfd_create("crash notes", MFD_CLOEXEC));
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child == 0) BecomeChild(program, parent, before, notes.Number());
    RunEnd end;
    if (child > 0) {
        const int status = Watcher(child, signals).Await(SteadyClock::now() + longest);
        end = {WIFEXITED(status) ? WEXITSTATUS(status) : 0,
               WIFSIGNALED(status) ? WTERMSIG(status) : 0, ContentOf(notes.Number())};
    }
    // What was meant for the child, and came when it had ended, is no signal for this process.
    siginfo_t late = {};
    while (TakeSignal(signals, SteadyClock::now(), late)) {
    }
    ::sigprocmask(SIG_SETMASK, &before, nullptr);
    if (child < 0) end.status = program();
    return end;
}

}  // namespace tamlo
