// Something that drives, rolls or runs past: nearer and away again, its pitch falling as it passes.
#pragma once

#include "sound.h"

namespace tamlo::soundsmith {

struct PassBy {
    double moment;    // seconds from the start at which it is nearest
    double speed;     // metres a second
    double distance;  ///< metres at its nearest; there it is as loud as the source
};

/// What a listener at the roadside hears of `source` in `seconds`. Level falls with distance, the
/// air takes the brightness, and the way that sound must travel bends the pitch.
Sound Passing(const Sound& source, const PassBy& pass, double seconds);

}  // namespace tamlo::soundsmith
