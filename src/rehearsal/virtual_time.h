// The unit of a rehearsal's clock: whole hundredths of a second since the start.
#pragma once

#include <cstdint>
#include <limits>

namespace tamlo {

using Ticks = std::int64_t;

inline constexpr Ticks ticks_per_second = 100;

/// A moment that never comes. Half the range, so that sums don't overflow.
inline constexpr Ticks never = std::numeric_limits<Ticks>::max() / 2;

}  // namespace tamlo
