// When the lines in the window are painted.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tamlo {

/// A key that comes while lines are painted is kept waiting. So they are painted only once no line
/// and no key has come for a while, but not much later than they should be seen. All times in
/// milliseconds of one clock.
class PaintSchedule {
  public:
    static constexpr std::uint64_t pause = 50;            ///< without a line or a key
    static constexpr std::uint64_t longest_unseen = 500;  ///< in any case

    void LineAdded(std::uint64_t now) {
        busy_at_ = now;
        if (!unpainted_) unseen_since_ = now;
        unpainted_ = true;
    }
    void KeyPressed(std::uint64_t now) { busy_at_ = now; }
    void Painted() { unpainted_ = false; }

    /// Whether there are lines to paint at all.
    bool Unpainted() const { return unpainted_; }
    /// How long they have yet to wait; 0 if they are due.
    std::uint64_t Wait(std::uint64_t now) const {
        const std::uint64_t due = std::min(busy_at_ + pause, unseen_since_ + longest_unseen);
        return now < due ? due - now : 0;
    }

  private:
    bool unpainted_ = false;
    std::uint64_t unseen_since_ = 0;  ///< time of the first unpainted line
    std::uint64_t busy_at_ = 0;       ///< time of the last key or line
};

}  // namespace tamlo
