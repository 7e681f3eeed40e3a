// Steps out of heel, sole and grit.
#include "walk.h"

#include "filters.h"
#include "sources.h"

namespace tamlo::soundsmith {

Shoe HeavyShoe() {
    return {{{{95, 0.09, 1.0}, {172, 0.07, 0.8}, {318, 0.05, 0.5}, {690, 0.03, 0.3}},
             {1.0, 0.025, 250, 3200},
             0.04},
            0.085,
            0.5,
            300,
            4200,
            0.35};
}

Shoe HighHeel() {
    return {{{{780, 0.035, 0.7}, {1460, 0.03, 1.0}, {2380, 0.022, 0.8}, {3900, 0.014, 0.5}},
             {0.9, 0.008, 1200, 8000},
             0.03},
            0.055,
            0.22,
            900,
            6000,
            0.12};
}

Shoe RunningShoe() {
    return {{{{82, 0.08, 1.0}, {148, 0.06, 0.8}, {260, 0.04, 0.4}}, {1.1, 0.05, 180, 1900}, 0.05},
            0.045,
            0.7,
            500,
            3800,
            0.6};
}

Shoe HouseSlipper() {
    return {{{{110, 0.1, 1.0}, {205, 0.07, 0.7}, {360, 0.05, 0.4}}, {0.5, 0.03, 150, 1300}, 0.04},
            0.09,
            0.5,
            400,
            2200,
            0.1};
}

Sound Step(const Shoe& shoe, int rate, double strength, Chance& chance) {
    Sound step = Silence(rate, 0.4);
    MixAt(step, Hit(shoe.heel, rate, strength, chance), 0.0);
    const Sound sole = NoiseBurst(rate, 0.012, 0.07, shoe.sole_low_hz, shoe.sole_high_hz, chance);
    MixAt(step, sole, shoe.sole_delay * chance.About(0.12),
          shoe.sole_level * strength * chance.About(0.2));
    for (int grain = 0; grain < 14; ++grain)
        MixAt(step, NoiseBurst(rate, 0.0005, 0.006, 2500, 9000, chance), chance.Between(0.0, 0.14),
              shoe.grit * strength * chance.Between(0.1, 0.6));
    return step;
}

Sound Clop(int rate, double size, double strength, Chance& chance) {
    // A hoof is a hollow cup that knocks: two low tones of the hollow, an iron edge above.
    const Body hoof{{{640, 0.06, 1.0}, {985, 0.05, 0.9}, {1580, 0.035, 0.5}, {3250, 0.03, 0.22}},
                    {0.8, 0.012, 700, 5000},
                    0.05};
    Sound clop = Hit(Scaled(hoof, 1.0 / size), rate, strength, chance);
    SetLength(clop, 0.3);
    MixAt(clop, NoiseBurst(rate, 0.004, 0.05, 150, 900, chance), 0.0, 0.8 * strength);
    return clop;
}

double AddWalk(Sound& onto, const Shoe& shoe, const Walk& walk, Chance& chance) {
    double at = walk.first;
    double last = at;
    for (int i = 0; i < walk.steps; ++i) {
        const double part = walk.steps > 1 ? static_cast<double>(i) / (walk.steps - 1) : 0.0;
        const double level = walk.from_level + (walk.to_level - walk.from_level) * part;
        const double foot = i % 2 == 0 ? 1.0 : 0.88;
        MixAt(onto, Step(shoe, onto.rate, foot * chance.About(0.12), chance), at, level);
        last = at;
        at += walk.apart * chance.About(0.04);
    }
    return last;
}

}  // namespace tamlo::soundsmith
