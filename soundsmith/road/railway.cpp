// The railway crossing: its bell, and the two trains that can come.
#include <array>
#include <cmath>

#include "filters.h"
#include "road.h"
#include "vocabulary/bodies.h"
#include "vocabulary/engine_kinds.h"
#include "vocabulary/horns.h"
#include "vocabulary/pass_by.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"

namespace tamlo::soundsmith {

namespace {

// A wheel over the gap between two rails.
const Body rail_joint{
    {{70, 0.25, 1.0}, {161, 0.18, 1.0}, {423, 0.1, 0.7}, {1310, 0.07, 0.45}, {2650, 0.04, 0.2}},
    {0.9, 0.02, 400, 4000},
    0.03};

// Wheels pass the joint before the listener: the head of the train at `head`, the last wheel
// before `tail` (seconds). A wagon has two bogies of two axles.
struct Wheels {
    double head, tail;
    double speed;         // metres a second
    double wagon, bogie;  // metres: from wagon to wagon, between a wagon's bogies
    double axles;         // metres between the two axles of a bogie
};

Sound Clacks(int rate, double seconds, const Wheels& wheels, Chance& chance) {
    Sound clacks = Silence(rate, seconds);
    for (double wagon = wheels.head; wagon < wheels.tail; wagon += wheels.wagon / wheels.speed) {
        const double strength = chance.Between(0.7, 1.0);
        const Body joint = Scaled(rail_joint, chance.About(0.06));
        for (const double place : {0.0, wheels.axles, wheels.bogie, wheels.bogie + wheels.axles})
            MixAt(clacks, Hit(joint, rate, strength * chance.About(0.12), chance),
                  wagon + place / wheels.speed);
    }
    return clacks;
}

Sound BlowHorn(int rate, const HornKind& kind, std::initializer_list<Curve::Point> blasts,
               double seconds, Chance& chance) {
    Sound horn = Silence(rate, seconds);
    for (const auto& [at, length] : blasts) MixAt(horn, Horn(rate, kind, length, chance), at);
    return horn;
}

}  // namespace

Sound CrossingBell(Brief brief) {
    Sound bells = brief.Blank();
    Body high = BellOf(880, 0.9), low = BellOf(794, 0.9);
    const double beat = brief.seconds / 12.0;
    for (int stroke = 0; stroke < 12; ++stroke)  // half a beat in: the seam is at its quietest
        MixAt(bells, Hit(stroke % 2 == 0 ? high : low, brief.rate, 1.0, brief.chance),
              (stroke + 0.5) * beat);
    AddRoom(bells, {9, 0.5, 4000, 0.15});
    return bells;
}

Sound FreightTrain(Brief brief) {
    const double near = 5.6;  // the locomotive passes the listener
    const Sound blank = brief.Blank();
    Sound locomotive = RunEngine(locomotive_engine, blank, 6.2, 1.0, brief.chance);
    // Long, long, short, long.
    MixAt(locomotive,
          BlowHorn(brief.rate, freight_horn, {{0.15, 1.3}, {1.7, 1.2}, {3.15, 0.5}, {3.9, 2.9}},
                   brief.seconds, brief.chance),
          0.0, 1.7);
    Sound train = Passing(locomotive, {near, 9.0, 9.0}, brief.seconds);
    const Wheels wheels{near - 0.4, 12.6, 10.5, 15.0, 9.5, 1.9};
    Sound clacks = Clacks(brief.rate, brief.seconds, wheels, brief.chance);
    Shape(clacks, {{0.0, 0.0}, {near - 0.5, 0.75}, {near + 1, 1.0}, {12.0, 0.85}, {13.0, 0.4}});
    MixAt(train, clacks, 0.0, 1.6);
    Sound rumble = NoiseBand(blank, 35, 260, brief.chance);
    MixAt(rumble, NoiseBand(blank, 400, 3200, brief.chance), 0.0, 0.3);
    Shape(rumble, {{0.0, 0.05}, {3.5, 0.25}, {near, 1.0}, {12.0, 0.85}, {14.1, 0.05}});
    MixAt(train, rumble, 0.0, 1.3);
    Sound flange = Tone(brief.rate, 2.6, Vibrato(2750, 0.006, 3.1, 2.6), {1.0, 0.4});
    Shape(flange, {{0.0, 0.0}, {0.6, 1.0}, {1.3, 0.3}, {1.9, 0.8}, {2.6, 0.0}});
    MixAt(train, flange, 8.2, 0.07);
    AddRoom(train, street_room);
    Shape(train, {{0.0, 1.0}, {12.4, 1.0}, {14.0, 0.0}});
    return train;
}

Sound PassengerTrain(Brief brief) {
    const double near = 4.4;
    const Sound blank = brief.Blank();
    // An electric unit: the whine of its drive over the roar of its air.
    Sound unit = Tone(brief.rate, brief.seconds, Vibrato(610, 0.004, 0.7, brief.seconds),
                      {0.5, 0.2, 0.3, 0.1, 0.15});
    MixAt(unit, NoiseBand(blank, 150, 5000, brief.chance), 0.0, 1.6);
    const Sound horn = BlowHorn(brief.rate, passenger_horn, {{0.2, 0.7}, {1.05, 0.9}, {2.9, 0.8}},
                                brief.seconds, brief.chance);
    MixAt(unit, horn, 0.0, 6.0);
    Sound train = Passing(unit, {near, 33.0, 8.0}, brief.seconds);
    Sound rear =
        Passing(NoiseBand(blank, 120, 4000, brief.chance), {near + 4.6, 33.0, 8.0}, brief.seconds);
    MixAt(train, rear, 0.0, 1.2);
    Sound whoosh = NoiseBand(blank, 80, 2800, brief.chance);
    Shape(whoosh, {{0.0, 0.0},
                   {near - 0.7, 0.08},
                   {near, 1.0},
                   {near + 4.5, 0.9},
                   {near + 5.4, 0.1},
                   {11.5, 0.0}});
    MixAt(train, whoosh, 0.0, 1.5);
    Sound clacks = Clacks(brief.rate, brief.seconds,
                          {near - 0.1, near + 4.5, 33.0, 23.0, 15.5, 2.4}, brief.chance);
    MixAt(train, clacks, 0.0, 1.5);
    AddRoom(train, street_room);
    Shape(train, {{0.0, 1.0}, {10.0, 1.0}, {11.9, 0.0}});
    return train;
}

}  // namespace tamlo::soundsmith
