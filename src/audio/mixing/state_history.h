// The states of the stream that it can go back to.
#pragma once

#include <array>
#include <cstdint>

#include "audio/mixing/limiter.h"
#include "audio/mixing/source.h"

namespace tamlo {

/// What it takes to go on from a frame of the stream, beside its tracks and sources.
struct StreamState {
    std::int64_t frame = 0;  ///< the next to be rendered
    Limiter limiter{};
    std::int64_t quiet = 0;  ///< frames rendered since an attached source was audible
};

/// The first state is as far as the stream has been heard, the last as far as it has been rendered.
/// Never empty: it begins with frame 0.
class StateHistory {
  public:
    const StreamState& Heard() const { return At(first_); }
    const StreamState& Rendered() const { return At(last_); }
    int RenderedSlot() const { return Slot(last_); }

    /// Adds the state, or replaces the last one if it is of the same frame. If there is no room,
    /// the first is forgotten. Returns the slot.
    int Save(const StreamState& state) {
        if (At(last_).frame != state.frame) ++last_;
        if (last_ - first_ == most_states) ++first_;
        states_[static_cast<std::size_t>(Slot(last_))] = state;
        return Slot(last_);
    }
    /// Forgets the states after `frame`, but never the first. False if there were none.
    bool ForgetAfter(std::int64_t frame) {
        const std::int64_t last = last_;
        while (last_ > first_ && At(last_).frame > frame) --last_;
        return last_ != last;
    }
    /// The last state at or before `frame` becomes the first. Returns its slot.
    int CommitUpTo(std::int64_t frame) {
        while (first_ < last_ && At(first_ + 1).frame <= frame) ++first_;
        return Slot(first_);
    }

  private:
    static int Slot(std::int64_t number) { return static_cast<int>(number % most_states); }
    const StreamState& At(std::int64_t number) const {
        return states_[static_cast<std::size_t>(Slot(number))];
    }

    std::array<StreamState, most_states> states_{};
    std::int64_t first_ = 0;
    std::int64_t last_ = 0;
};

}  // namespace tamlo
