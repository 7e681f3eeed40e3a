// Latch, hinge and the thump of sheet metal.
#include "car_door.h"

#include "bodies.h"
#include "filters.h"
#include "sources.h"

namespace tamlo::soundsmith {

namespace {

const Body latch{{{890, 0.04, 0.8}, {1720, 0.03, 1.0}, {2950, 0.02, 0.7}, {4300, 0.015, 0.4}},
                 {0.9, 0.008, 900, 8000}};

}  // namespace

Sound CarDoorOpens(int rate, Chance& chance) {
    Sound door = Silence(rate, 0.6);
    MixAt(door, Hit(latch, rate, 1.0, chance), 0.0, 0.8);
    MixAt(door, Hit(latch, rate, 0.8, chance), 0.06, 0.7);
    Sound hinge = Tone(rate, 0.3, {{0.0, 190}, {0.15, 260}, {0.3, 220}}, FallingHarmonics(14, -3));
    hinge = Resonate(hinge, {{820, 6, 1.0}, {1900, 8, 0.6}});
    Shape(hinge, {{0.0, 0.0}, {0.05, 0.6}, {0.2, 1.0}, {0.3, 0.0}});
    MixAt(door, hinge, 0.13, 0.12);
    return door;
}

Sound CarDoorShuts(int rate, Chance& chance) {
    Sound door = Silence(rate, 0.6);
    const Body panel{
        {{62, 0.22, 1.0}, {104, 0.2, 1.0}, {171, 0.14, 0.7}, {288, 0.1, 0.5}, {540, 0.06, 0.3}},
        {1.3, 0.05, 120, 2600}};
    MixAt(door, NoiseBurst(rate, 0.09, 0.02, 200, 1400, chance), 0.0, 0.25);  // the air it pushes
    MixAt(door, Hit(panel, rate, 1.0, chance), 0.09);
    MixAt(door, Hit(latch, rate, 0.9, chance), 0.097, 0.6);
    MixAt(door, Hit(panel, rate, 0.4, chance), 0.15, 0.4);  // the window rattles after
    return door;
}

}  // namespace tamlo::soundsmith
