#include "services/thread.h"

#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <system_error>
#include <utility>

#include "linux/system/signal_stack.h"

namespace tamlo {
namespace {

constexpr int lowest_priority = 19;
/// The thread that makes such a fault gets them; blocked, they would end the program without a
/// report.
constexpr int faults[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS};

/// A thread that is started meanwhile gets no signals but its own faults; nor does the starter.
class SignalsBlocked {
  public:
    SignalsBlocked() noexcept {
        sigset_t blocked;
        sigfillset(&blocked);
        for (const int fault : faults) sigdelset(&blocked, fault);
        pthread_sigmask(SIG_SETMASK, &blocked, &before_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

  private:
    sigset_t before_;
};

}  // namespace

std::thread StartThread(std::function<void()> body) {
    const SignalsBlocked blocked;
    try {
        return std::thread([run = std::move(body)] {
            UseSignalStack();
            run();
        });
    } catch (const std::system_error&) {
        return {};
    }
}

int ThisThread() noexcept {
    return gettid();
}

void LowerPriority(int thread) noexcept {
    // Of one thread, in this system.
    setpriority(PRIO_PROCESS, static_cast<id_t>(thread), lowest_priority);
}

}  // namespace tamlo
