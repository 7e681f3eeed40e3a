// The city bus, which stops before the player, and the tram.
#include <cmath>
#include <utility>

#include "filters.h"
#include "road.h"
#include "vocabulary/bodies.h"
#include "vocabulary/engine_kinds.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

namespace {

// The folding doors: air, then the leaves knock against their stops.
Sound FoldingDoors(int rate, Chance& chance) {
    Sound doors = Silence(rate, 1.2);
    MixAt(doors, NoiseBurst(rate, 0.05, 0.75, 2200, 5000, chance), 0.0, 0.7);
    const Body leaf{{{130, 0.12, 1.0}, {285, 0.09, 0.8}, {720, 0.05, 0.5}}, {0.6, 0.02, 300, 3000}};
    MixAt(doors, Hit(leaf, rate, 1.0, chance), 0.72, 0.8);
    MixAt(doors, Hit(leaf, rate, 0.7, chance), 0.8, 0.6);
    return doors;
}

// The gears of the axle, which a bus is known by from far away: they climb with its speed.
Sound Gears(const Sound& like) {
    const Curve hz{{0.0, 730},  {3.2, 690},  {4.6, 430},  {6.1, 60},  {11.2, 60},
                   {13.0, 540}, {13.3, 560}, {15.2, 760}, {17.2, 800}};
    Sound gears = Tone(like.rate, like.Seconds(), hz, {1.0, 0.7, 0.3, 0.12});
    Shape(gears, {{0.0, 1.0}, {4.6, 0.7}, {5.9, 0.0}, {11.3, 0.0}, {12.0, 0.8}, {17.2, 1.0}});
    return gears;
}

}  // namespace

Sound CityBus(Brief brief) {
    // It nears for 6.1 s, stands for 5, and is gone after 17.2.
    Sound bus = brief.Blank();
    const Curve revs{{0.0, 10.5},  {3.2, 10.0}, {4.6, 6.5},   {5.9, 4.6},  {10.9, 4.6}, {11.3, 6.0},
                     {13.0, 11.5}, {13.3, 8.2}, {15.2, 11.5}, {15.5, 9.0}, {17.2, 10.5}};
    const Curve load{{0.0, 0.8},  {3.2, 0.6},   {5.9, 0.6},  {10.9, 0.6}, {11.3, 1.0}, {13.0, 1.0},
                     {13.1, 0.4}, {13.35, 1.0}, {15.2, 1.0}, {15.3, 0.4}, {15.6, 0.9}};
    Sound engine = RunEngine(bus_engine, bus, revs, load, brief.chance);
    Sound tyres = NoiseBand(bus, 150, 1800, brief.chance);
    Shape(tyres, {{0.0, 1.0}, {4.2, 0.8}, {6.0, 0.0}, {11.2, 0.0}, {13.5, 0.7}, {17.2, 1.0}});
    MixAt(engine, tyres, 0.0, 0.12);
    MixAt(engine, Gears(bus), 0.0, 0.24);
    const Curve nearness{{0.0, 0.2},  {2.5, 0.42}, {4.8, 0.9},  {6.0, 1.0},
                         {11.5, 1.0}, {13.5, 0.7}, {15.5, 0.3}, {17.2, 0.06}};
    Shape(engine, nearness);
    MovingLowPass(engine, {{0.0, 900}, {4.5, 5000}, {12.0, 5000}, {15.0, 1600}, {17.2, 700}});
    MixAt(bus, engine, 0.0);

    Sound squeal = Tone(brief.rate, 1.3, {{0.0, 1750}, {1.3, 1330}}, {1.0, 0.4, 0.2});
    MixAt(squeal, NoiseBand(squeal, 1000, 3500, brief.chance), 0.0, 0.3);
    Shape(squeal, {{0.0, 0.0}, {0.8, 1.0}, {1.25, 0.8}, {1.3, 0.0}});
    MixAt(bus, squeal, 4.7, 0.1);
    MixAt(bus, NoiseBurst(brief.rate, 0.01, 0.5, 2200, 5000, brief.chance), 6.1, 0.6);
    MixAt(bus, FoldingDoors(brief.rate, brief.chance), 6.7, 0.5);
    AddWalk(bus, HeavyShoe(), {4, 7.7, 0.4, 0.5, 0.35}, brief.chance);
    for (int beep = 0; beep < 4; ++beep) {
        Sound tone = Tone(brief.rate, 0.16, 1568, {1.0, 0.1, 0.25});
        FadeIn(tone, 0.005);
        FadeOut(tone, 0.01);
        MixAt(bus, tone, 9.15 + 0.32 * beep, 0.1);
    }
    MixAt(bus, FoldingDoors(brief.rate, brief.chance), 10.35, 0.45);
    MixAt(bus, NoiseBurst(brief.rate, 0.01, 0.25, 2200, 5000, brief.chance), 11.15, 0.5);
    AddRoom(bus, {14, 0.6, 2400, 0.15});
    SetLength(bus, 17.3);
    return bus;
}

Sound Tram(Brief brief) {
    Sound tram = brief.Blank();
    // Motor hum: gears that mesh, in whole waves around the loop.
    const auto whole = [&](double hz) { return std::round(hz * brief.seconds) / brief.seconds; };
    for (const auto& [hz, level] :
         {std::pair{156.0, 1.0}, {312.0, 0.8}, {497.0, 0.5}, {780.0, 0.35}, {1170.0, 0.2}})
        MixAt(tram, Tone(brief.rate, brief.seconds, whole(hz), {1.0, 0.3, 0.15}), 0.0,
              0.16 * level);
    Sound roll = NoiseBand(tram, 90, 900, brief.chance);
    MixAt(tram, roll, 0.0, 0.35);
    const Body joint{{{88, 0.22, 1.0}, {190, 0.16, 1.0}, {480, 0.09, 0.7}, {1450, 0.05, 0.4}},
                     {0.8, 0.02, 400, 3500},
                     0.04};
    for (const double at : {0.45, 0.63, 1.55, 1.73, 2.95, 3.13, 4.05, 4.23})
        MixAt(tram, Hit(joint, brief.rate, brief.chance.Between(0.8, 1.0), brief.chance), at, 0.75);
    Body gong = BellOf(1046.5, 0.9);
    gong.click = {0.5, 0.01, 1500, 7000};
    for (const double at : {1.0, 1.26, 3.5, 3.76})
        MixAt(tram, Hit(gong, brief.rate, 1.0, brief.chance), at, 0.6);
    AddRoom(tram, street_room);
    return tram;
}

}  // namespace tamlo::soundsmith
