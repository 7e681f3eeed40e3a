// A bell that one thread rings and another sleeps on; ringing it never waits, so the audio thread
// may.
#pragma once

#include <semaphore.h>
#include <time.h>

#include <cerrno>
#include <chrono>

namespace tamlo {

/// A ring is never lost: one that comes before the sleep ends the sleep at once. The standard
/// library's semaphores and condition variables promise nothing about the ringing side's time.
class Wakeup {
  public:
    Wakeup() noexcept { sem_init(&semaphore_, 0, 0); }
    ~Wakeup() { sem_destroy(&semaphore_); }
    Wakeup(const Wakeup&) = delete;
    Wakeup& operator=(const Wakeup&) = delete;

    void Ring() noexcept { sem_post(&semaphore_); }

    /// Returns after a ring, or when the time is over. Takes all rings so far.
    void SleepFor(std::chrono::microseconds time) noexcept {
        timespec end{};
        clock_gettime(CLOCK_MONOTONIC, &end);
        const auto nanoseconds = end.tv_nsec + (time % std::chrono::seconds(1)).count() * 1000;
        end.tv_sec += time / std::chrono::seconds(1) + nanoseconds / 1'000'000'000;
        end.tv_nsec = nanoseconds % 1'000'000'000;
        while (sem_clockwait(&semaphore_, CLOCK_MONOTONIC, &end) != 0 && errno == EINTR) {
        }
        TakeRings();
    }

    void Sleep() noexcept {
        while (sem_wait(&semaphore_) != 0 && errno == EINTR) {
        }
        TakeRings();
    }

    void TakeRings() noexcept {
        while (sem_trywait(&semaphore_) == 0) {
        }
    }

  private:
    sem_t semaphore_;
};

}  // namespace tamlo
