// Moving off with a clunk, and rolling out at a customer's corner.
#include <cmath>
#include <numbers>

#include "vehicles.h"
#include "vocabulary/bodies.h"
#include "vocabulary/engine_kinds.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"

namespace tamlo::soundsmith {

namespace {

// Worn brake shoes: a few high tones that slide down and waver, loudest just before the stop.
Sound BrakeSqueal(int rate, double seconds, Chance& chance) {
    Sound squeal = Silence(rate, seconds);
    for (const double hz : {1480.0, 2230.0, 3130.0}) {
        std::vector<Curve::Point> pitch;
        for (double t = 0.0; t <= seconds; t += 0.03)
            pitch.push_back({t, hz * (1.0 - 0.22 * t / seconds) * chance.About(0.012)});
        MixAt(squeal, Tone(rate, seconds, Curve(pitch), {1.0, 0.35, 0.15}), 0.0, 1500.0 / hz);
    }
    Sound rub = NoiseBand(squeal, 1200, 4500, chance);
    MixAt(squeal, rub, 0.0, 0.5);
    Shape(squeal, {{0.0, 0.0}, {0.25 * seconds, 0.35}, {0.8 * seconds, 1.0}, {seconds, 0.0}});
    return squeal;
}

Sound HandBrake(int rate, Chance& chance) {
    Sound ratchet = Silence(rate, 0.6);
    const Body tooth{{{1250, 0.035, 1.0}, {2300, 0.03, 0.9}, {3700, 0.02, 0.6}, {480, 0.03, 0.5}},
                     {0.8, 0.008, 1000, 8000}};
    for (int i = 0; i < 8; ++i)
        MixAt(ratchet, Hit(tooth, rate, chance.Between(0.7, 1.0), chance),
              0.045 * i + 0.0015 * i * i, 0.8 + 0.05 * i);
    return ratchet;
}

}  // namespace

Sound MovingOff(Brief brief) {
    Sound clunk = brief.Blank();
    const Body gear{{{150, 0.12, 1.0}, {290, 0.09, 0.8}, {640, 0.05, 0.6}, {1700, 0.03, 0.4}},
                    {0.9, 0.015, 400, 4500}};
    MixAt(clunk, Hit(gear, brief.rate, 1.0, brief.chance), 0.004, 0.9);
    const Ride ride{{{0.05, 22}, {0.13, 55}, {0.2, 38}},
                    {{0.04, 0.0}, {0.06, 0.9}, {0.13, 1.0}, {0.2, 0.3}},
                    4500,
                    1.0};
    MixAt(clunk, DriveEngine(small_car_engine, brief.Blank(), ride, brief.chance), 0.0, 0.9);
    return clunk;
}

Sound Arrival(Brief brief) {
    Sound arrival = brief.Blank();
    const double stop = 1.85;
    Sound tyres = NoiseBand(arrival, 90, 1500, brief.chance);
    MovingLowPass(tyres, {{0.0, 1500}, {stop, 220}});
    Shape(tyres, {{0.0, 0.9}, {stop - 0.3, 0.35}, {stop, 0.0}});
    MixAt(arrival, tyres, 0.0, 1.5);
    for (double t = 0.05; t < stop - 0.1; t += 0.03 + 0.06 * t / stop)  // gravel under the tyres
        MixAt(arrival, NoiseBurst(brief.rate, 0.0005, 0.012, 1800, 5000, brief.chance),
              t * brief.chance.About(0.02), 0.3 * (1.0 - t / stop));
    MixAt(arrival, BrakeSqueal(brief.rate, 1.15, brief.chance), stop - 1.15, 0.2);
    // The jolt: springs take up the weight and let it go.
    const Body jolt{{{72, 0.3, 1.0}, {118, 0.2, 0.9}, {205, 0.12, 0.5}, {560, 0.06, 0.3}},
                    {0.5, 0.03, 200, 2500}};
    MixAt(arrival, Hit(jolt, brief.rate, 1.0, brief.chance), stop, 0.8);
    MixAt(arrival, Hit(jolt, brief.rate, 0.5, brief.chance), stop + 0.17, 0.5);
    MixAt(arrival, HandBrake(brief.rate, brief.chance), stop + 0.4, 0.55);
    AddRoom(arrival, {14, 0.5, 2600, 0.12});
    return arrival;
}

}  // namespace tamlo::soundsmith
