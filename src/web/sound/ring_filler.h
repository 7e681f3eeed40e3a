// Keeps the shared ring filled ahead of the worklet, and takes back what a key has changed.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <vector>

#include "audio/mixing/change_bell.h"
#include "audio/output/tap.h"
#include "services/wakeup.h"
#include "web/sound/shared_ring.h"

namespace tamlo {

/// A change bell that the ring's thread sleeps on.
class RingBell final : public ChangeBell {
  public:
    void Ring() noexcept override {
        rung_ = true;
        wakeup_.Ring();
    }
    /// Returns after a ring or a Wake, or when the time is over.
    void SleepFor(std::chrono::microseconds time) noexcept { wakeup_.SleepFor(time); }
    void Wake() noexcept { wakeup_.Ring(); }
    /// Whether it has rung since it was last asked.
    bool TakeRing() noexcept { return rung_.exchange(false); }

  private:
    Wakeup wakeup_;
    std::atomic<bool> rung_{false};
};

/// The mixer renders an eighth of a second ahead of the worklet. A change is rendered beside the
/// ring, as much as the worklet takes at once, and laid over what it has not taken by then, faded
/// into; what follows is written in place. For one thread.
class RingFiller {
  public:
    /// All must outlive this object.
    RingFiller(SharedRing& ring, Tap& tap, RingBell& bell);

    /// Looks how far the worklet has come and does what is due; takes a millisecond or so.
    void Turn();

  private:
    void LetGo(std::uint32_t taken);
    std::uint32_t LayOver(std::uint32_t at);
    void Fill();
    void Write(std::uint32_t at, const float* from, std::uint32_t frames);
    void FadeInto(std::uint32_t at, const float* from, std::uint32_t frames, std::uint32_t fade);

    SharedRing& ring_;
    Tap& tap_;
    RingBell& bell_;
    bool changed_ = false;
    std::uint32_t to_rewrite_ = 0;  ///< frames, the last that are written
    bool to_fade_ = false;          ///< none of these has been rewritten yet
    std::uint32_t asked_ = 0;
    std::vector<float> side_;
    std::vector<float> block_;
};

}  // namespace tamlo
