#include "linux/sound/block_size.h"

#include <algorithm>

namespace tamlo {
namespace {

// More late blocks than this in ten seconds call for longer ones.
constexpr int most_late = 1;
constexpr auto late_window = std::chrono::seconds(10);
constexpr std::chrono::seconds longest_calm = std::chrono::hours(1);

}  // namespace

void BlockSize::Opened(int late, Time now) {
    late_before_ = last_late_ = late;
    window_began_ = calm_since_ = now;
}

int BlockSize::Wanted(int late, Time now) {
    if (late != last_late_) calm_since_ = now;
    last_late_ = late;
    if (late - late_before_ > most_late && frames_ < range_.longest) return 2 * frames_;
    if (now - window_began_ > late_window) {
        window_began_ = now;
        late_before_ = late;
    }
    return now - calm_since_ > calm_ ? std::max(frames_ / 2, range_.shortest) : frames_;
}

void BlockSize::Change(int frames) {
    if (frames > frames_ && shortened_) calm_ = std::min(2 * calm_, longest_calm);
    shortened_ = frames < frames_;
    frames_ = frames;
}

}  // namespace tamlo
