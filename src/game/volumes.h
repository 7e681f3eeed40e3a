// The range of the volume of effects.
#pragma once

namespace tamlo {

/// The lowest volume that a player can choose, in hundredths of a decibel; the highest is 0.
inline constexpr int quietest_sound = -3500;

}  // namespace tamlo
