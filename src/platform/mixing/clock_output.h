// An output for when there is no sound card: takes the stream in exact real time and drops it.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/mixing/tap.h"

namespace tamlo {

/// Stands by while the card pulls. When the card has been silent for half a second it takes over,
/// so that every sound and every utterance comes to its end, heard or not.
class ClockOutput {
  public:
    explicit ClockOutput(std::shared_ptr<Tap> tap);
    ~ClockOutput();
    ClockOutput(const ClockOutput&) = delete;
    ClockOutput& operator=(const ClockOutput&) = delete;

  private:
    using Time = std::chrono::steady_clock::time_point;

    void Run();
    void TakeStream();
    bool SleepUntil(Time time);

    std::shared_ptr<Tap> tap_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool ending_ = false;
    std::thread thread_;
};

}  // namespace tamlo
