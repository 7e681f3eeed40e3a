// Horns, whistles and sirens: what vehicles call with.
#pragma once

#include <vector>

#include "chance.h"
#include "curve.h"
#include "sound.h"

namespace tamlo::soundsmith {

struct HornKind {
    std::vector<double> notes;  ///< hertz, sounding together
    double fall_db;             // of the harmonics, an octave
    double throat_hz;           // where the trumpet is loudest
    double rise;                // seconds until it speaks
};

inline const HornKind car_horn{{349, 440}, -3, 2300, 0.02};
inline const HornKind angry_horn{{405, 512}, -2, 2700, 0.012};
inline const HornKind truck_horn{{148, 186, 223}, -4, 1100, 0.06};
inline const HornKind freight_horn{{185, 233, 277, 311, 370}, -5, 1200, 0.09};
inline const HornKind passenger_horn{{311, 370}, -4, 1600, 0.05};

Sound Horn(int rate, const HornKind& kind, double seconds, Chance& chance);

/// A siren whose pitch follows `hz`, through its loudspeaker.
Sound Siren(int rate, double seconds, const Curve& hz);

/// An old rubber-bulb horn: one honk.
Sound BulbHonk(int rate, double hz, double seconds, Chance& chance);

}  // namespace tamlo::soundsmith
