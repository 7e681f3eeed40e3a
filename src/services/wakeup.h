// A wake-up call from one thread to another.
#pragma once

#include <chrono>
#include <memory>

namespace tamlo {

/// Ringing never waits, so the audio thread may; the standard library's semaphores and condition
/// variables promise nothing about that. A ring is never lost: one that comes before the wait ends
/// the wait at once.
class Wakeup {
  public:
    Wakeup();
    ~Wakeup();
    Wakeup(const Wakeup&) = delete;
    Wakeup& operator=(const Wakeup&) = delete;

    void Ring() noexcept;

    /// Waits for a ring or until the time is over. Clears all rings so far.
    void SleepFor(std::chrono::microseconds time) noexcept;
    /// Waits for a ring. Clears all rings so far.
    void Sleep() noexcept;

  private:
    struct Semaphore;
    std::unique_ptr<Semaphore> semaphore_;
};

}  // namespace tamlo
