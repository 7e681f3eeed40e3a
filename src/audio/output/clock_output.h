// An output for when there is no sound card: lets the stream's time pass, exactly.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "audio/output/tap.h"

namespace tamlo {

/// What the clock does at a moment; it looks at no clock itself. Stands by while the card pulls.
/// When the card has been silent for half a second it takes over, so that every sound and every
/// utterance comes to its end, heard or not.
class ClockPulls {
  public:
    using Time = std::chrono::steady_clock::time_point;

    explicit ClockPulls(std::shared_ptr<Tap> tap) : tap_(std::move(tap)) {}

    /// Looks after the card, and lets the blocks pass that are due. When to come again.
    Time Turn(Time now);

  private:
    std::shared_ptr<Tap> tap_;
    std::optional<Time> next_block_;  ///< while in charge
};

/// The thread that takes the turns; without one, the game's thread takes them.
class ClockOutput {
  public:
    explicit ClockOutput(std::shared_ptr<Tap> tap);
    ~ClockOutput();
    ClockOutput(const ClockOutput&) = delete;
    ClockOutput& operator=(const ClockOutput&) = delete;

    /// For the game's thread, in each of its own turns: takes the clock's if the system had no
    /// thread for it. Seconds until the next one is due; infinite if the clock has its thread.
    double TurnWithoutThread();

  private:
    void Run();
    bool SleepUntil(ClockPulls::Time time);

    ClockPulls pulls_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool ending_ = false;
    std::thread thread_;
};

}  // namespace tamlo
