// A bell that one thread rings and another sleeps on.
#pragma once

#include <chrono>
#include <memory>

namespace tamlo {

/// Ringing never waits, so the audio thread may; the standard library's semaphores and condition
/// variables promise nothing about that. A ring is never lost: one that comes before the sleep ends
/// the sleep at once.
class Wakeup {
  public:
    Wakeup();
    ~Wakeup();
    Wakeup(const Wakeup&) = delete;
    Wakeup& operator=(const Wakeup&) = delete;

    void Ring() noexcept;

    /// Returns after a ring, or when the time is over. Takes all rings so far.
    void SleepFor(std::chrono::microseconds time) noexcept;
    /// Returns after a ring. Takes all rings so far.
    void Sleep() noexcept;

  private:
    struct Semaphore;
    std::unique_ptr<Semaphore> semaphore_;
};

}  // namespace tamlo
