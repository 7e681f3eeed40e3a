// A block is filled in microseconds every 5 ms. Without priority any busy program may come first,
// and the block too late.
#include "platform/desktop/realtime.h"

#include <SDL.h>
#include <sched.h>

namespace tamlo {
namespace {

// Above all that is not real-time, below the sound servers and the kernel's own threads.
constexpr int priority = 3;

}  // namespace

void AskForRealTime() {
    SDL_SetHint(SDL_HINT_THREAD_PRIORITY_POLICY, "rr");
    SDL_SetHint(SDL_HINT_THREAD_FORCE_REALTIME_TIME_CRITICAL, "1");
}

void TakeRealTime() noexcept {
    const int policy = sched_getscheduler(0) & ~SCHED_RESET_ON_FORK;
    if (policy == SCHED_RR || policy == SCHED_FIFO) return;
    sched_param wanted{};
    wanted.sched_priority = priority;
    // What the thread may start does not inherit the priority.
    sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &wanted);
}

}  // namespace tamlo
