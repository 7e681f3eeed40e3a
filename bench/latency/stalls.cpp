// How often the machine itself stands still: on each processor a thread of the highest real-time
// priority sleeps a millisecond at a time, and counts when it wakes over 3 ms late. No program
// fills its blocks in such a moment. The argument is for how many seconds. Prints the count;
// nothing, and ends with 1, where that priority can't be had.
#include <pthread.h>
#include <sched.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// False if the thread can't be given the processor or the priority.
bool Settle(unsigned processor) {
    cpu_set_t own;
    CPU_ZERO(&own);
    CPU_SET(processor, &own);
    const sched_param highest{sched_get_priority_max(SCHED_FIFO)};
    return pthread_setaffinity_np(pthread_self(), sizeof own, &own) == 0 &&
           pthread_setschedparam(pthread_self(), SCHED_FIFO, &highest) == 0;
}

void Watch(unsigned processor, Clock::time_point end, std::atomic<int>& stalls,
           std::atomic<bool>& failed) {
    if (!Settle(processor)) {
        failed = true;
        return;
    }
    for (auto due = Clock::now() + 1ms; due < end; due += 1ms) {
        std::this_thread::sleep_until(due);
        const auto late = Clock::now() - due;
        stalls += late > 3ms;
        if (late > 1ms) due += late;
    }
}

}  // namespace

int main(int count, char** arguments) {
    const auto end = Clock::now() + std::chrono::seconds(count > 1 ? std::atoi(arguments[1]) : 10);
    std::atomic<int> stalls = 0;
    std::atomic<bool> failed = false;
    std::vector<std::jthread> threads;
    for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i) {
        threads.emplace_back(Watch, i, end, std::ref(stalls), std::ref(failed));
    }
    threads.clear();
    if (failed) return 1;
    std::printf("%d\n", stalls.load());
}
