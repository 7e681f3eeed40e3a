// The place around a sound: reflections and a tail, from a tiled hall to a street.
#pragma once

#include "sound.h"

namespace tamlo::soundsmith {

struct Room {
    double size;       // metres: the first reflections come after sound has crossed it
    double seconds;    // until the tail has died away by 60 dB
    double bright_hz;  ///< the tail is dull above this
    double share;      // level of the tail against the sound itself
};

inline constexpr Room street_room{14, 0.9, 2600, 0.25};
inline constexpr Room porch{3, 0.35, 4500, 0.25};
inline constexpr Room hallway{5, 0.7, 3500, 0.4};
inline constexpr Room shop{7, 0.6, 4000, 0.25};

/// Adds the room to the sound, whose length stays as it is.
void AddRoom(Sound& sound, const Room& room);

/// As heard from outside, through a closed door.
void BehindDoor(Sound& sound);

}  // namespace tamlo::soundsmith
