// A block is filled in microseconds every 5 ms. Without priority any busy program may come first,
// and the block too late.
#include "linux/sound/realtime.h"

#include <SDL2/SDL.h>
#include <sched.h>

#include <thread>

#include "services/thread.h"

namespace tamlo {
namespace {

// Above all that is not real-time, below the sound servers and the kernel's own threads.
constexpr int priority = 3;

bool HasRealTime(int thread) {
    const int policy = sched_getscheduler(thread) & ~SCHED_RESET_ON_FORK;
    return policy == SCHED_RR || policy == SCHED_FIFO;
}

}  // namespace

void AskForRealTime() {
    SDL_SetHint(SDL_HINT_THREAD_PRIORITY_POLICY, "rr");
    SDL_SetHint(SDL_HINT_THREAD_FORCE_REALTIME_TIME_CRITICAL, "1");
}

void TakeRealTime() noexcept {
    if (HasRealTime(0)) return;
    // What the thread may start does not inherit the priority; the broker insists on that.
    sched_param wanted{};
    wanted.sched_priority = priority;
    if (sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &wanted) == 0) return;
    wanted.sched_priority = 0;
    sched_setscheduler(0, SCHED_OTHER | SCHED_RESET_ON_FORK, &wanted);
}

// The way to the broker may hang: no thread that matters goes it.
void AskBrokerFor(int thread) {
    if (thread == 0 || HasRealTime(thread)) return;
    std::thread asking = StartThread([thread] {
        SDL_LinuxSetThreadPriorityAndPolicy(thread, SDL_THREAD_PRIORITY_TIME_CRITICAL, SCHED_RR);
    });
    if (asking.joinable()) asking.detach();  // else it goes on without
}

}  // namespace tamlo
