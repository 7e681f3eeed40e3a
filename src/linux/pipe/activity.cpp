// Keeping the time since the game last did anything.
#include "linux/pipe/activity.h"

#include <algorithm>

namespace tamlo {
namespace {

constexpr std::chrono::microseconds rest_time{1000000};

}  // namespace

Busy::Busy(Activity& activity) : activity_(activity) {
    activity_.watched_.push_back(this);
}

Busy::~Busy() {
    std::erase(activity_.watched_, this);
}

Activity::Activity(const Clock& clock) : clock_(clock), active_(clock.Steady()) {}

void Activity::Asked() {
    active_ = clock_.Steady();
}

bool Activity::IsBusy() const {
    return std::any_of(watched_.begin(), watched_.end(), [](const Busy* b) { return b->IsBusy(); });
}

double Activity::SecondsUntilRest() {
    if (IsBusy()) Asked();
    const std::chrono::duration<double> left = active_ + rest_time - clock_.Steady();
    return std::max(left.count(), 0.0);
}

}  // namespace tamlo
