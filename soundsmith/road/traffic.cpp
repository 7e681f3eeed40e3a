// Cars and lorries that cross the player's way.
#include <array>
#include <cmath>
#include <numbers>

#include "filters.h"
#include "road.h"
#include "vocabulary/bodies.h"
#include "vocabulary/engine_kinds.h"
#include "vocabulary/horns.h"
#include "vocabulary/instruments.h"
#include "vocabulary/pass_by.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"

namespace tamlo::soundsmith {

namespace {

// Rubber dragged over the road: a tone that tears, and its octave.
Sound Screech(int rate, double seconds, double hz, Chance& chance) {
    Sound screech = Silence(rate, seconds);
    for (const double part : {1.0, 1.31, 1.87}) {
        std::vector<Curve::Point> pitch;
        for (double t = 0.0; t <= seconds; t += 0.012)
            pitch.push_back({t, hz * part * (1.0 - 0.16 * t / seconds) * chance.About(0.035)});
        MixAt(screech, Tone(rate, seconds, Curve(pitch), FallingHarmonics(5, -5)), 0.0, 1.0 / part);
    }
    MixAt(screech, NoiseBand(screech, 900, 5000, chance), 0.0, 1.0);
    return screech;
}

// What a lorry carries loose: chains and the flaps of its bed, shaken at every bump.
void AddLoad(Sound& truck, Chance& chance) {
    const Body flap{{{310, 0.16, 1.0}, {780, 0.12, 0.9}, {1720, 0.09, 0.7}, {3300, 0.06, 0.5}},
                    {0.7, 0.012, 1200, 8000},
                    0.08};
    const Body chain{
        {{2650, 0.06, 1.0}, {4150, 0.05, 0.9}, {6100, 0.04, 0.7}}, {0.5, 0.006, 3000, 9000}, 0.12};
    for (double at = 0.1; at < truck.Seconds(); at += chance.Between(0.28, 0.62)) {
        MixAt(truck, Hit(flap, truck.rate, 1.0, chance), at, chance.Between(0.5, 0.9));
        for (int link = 0; link < 5; ++link)
            MixAt(truck, Hit(chain, truck.rate, chance.Between(0.5, 1.0), chance),
                  at + chance.Between(0.0, 0.25), 0.5);
    }
}

}  // namespace

Sound OldCar(Brief brief) {
    Sound car = RunEngine(wreck_engine, brief.Blank(), {{0.0, 5.6}, {1.0, 6.4}, {2.0, 5.6}}, 1.0,
                          brief.chance);
    const Body tin{
        {{530, 0.07, 1.0}, {1190, 0.06, 0.8}, {2240, 0.05, 0.6}}, {0.4, 0.01, 1000, 6000}, 0.08};
    for (int i = 0; i < 16; ++i)  // mudguards and doors shake along
        MixAt(car, Hit(tin, brief.rate, 0.8, brief.chance),
              brief.seconds * (i + brief.chance.Next()) / 16, 0.1);
    MixAt(car, BulbHonk(brief.rate, 262, 0.15, brief.chance), 0.62, 0.9);
    MixAt(car, BulbHonk(brief.rate, 240, 0.42, brief.chance), 0.84, 0.95);
    AddRoom(car, {14, 0.5, 2600, 0.12});
    return car;
}

Sound NearMiss(Brief brief) {
    Sound scene = brief.Blank();
    Sound screech = Screech(brief.rate, 1.25, 1050, brief.chance);
    Shape(screech, {{0.0, 0.0}, {0.03, 1.0}, {0.9, 0.85}, {1.25, 0.0}});
    MixAt(scene, screech, 0.02, 0.4);
    MixAt(scene, Horn(brief.rate, angry_horn, 0.28, brief.chance), 0.72, 0.9);
    MixAt(scene, Horn(brief.rate, angry_horn, 1.25, brief.chance), 1.1);
    AddRoom(scene, street_room);
    return scene;
}

Sound Truck(Brief brief) {
    const Sound blank = Silence(brief.rate, brief.seconds);
    Sound truck = RunEngine(
        truck_engine, blank, {{0.0, 9.5}, {1.6, 11.5}, {2.4, 10}, {3.4, 9.4}, {6.0, 12.5}},
        {{0.0, 1.0}, {1.6, 1.0}, {1.9, 0.5}, {3.3, 0.5}, {3.7, 1.0}}, brief.chance);
    MixAt(truck, NoiseBand(blank, 120, 2200, brief.chance), 0.0, 0.5);  // many tyres
    AddLoad(truck, brief.chance);
    MixAt(truck, Horn(brief.rate, truck_horn, 0.45, brief.chance), 1.0, 1.7);
    MixAt(truck, Horn(brief.rate, truck_horn, 0.85, brief.chance), 1.6, 1.7);
    Sound scene = Passing(truck, {2.95, 8.5, 6.5}, brief.seconds);
    // The brakes let their air go as it passes.
    MixAt(scene, NoiseBurst(brief.rate, 0.012, 0.55, 900, 2600, brief.chance), 3.0, 0.4);
    MixAt(scene, NoiseBurst(brief.rate, 0.008, 0.2, 900, 2600, brief.chance), 3.62, 0.25);
    AddRoom(scene, street_room);
    return scene;
}

Sound IceCreamVan(Brief brief) {
    Sound chimes = brief.Blank();
    // Sixteen beats of a tune that never comes to its end.
    constexpr std::array tune{"g5", "e5", "g5", "a5", "g5", "e5", "c5", "d5",
                              "e5", "f5", "e5", "d5", "b4", "d5", "g4", "f5"};
    constexpr std::array bass{"c4", "c4", "f4", "c4", "g4", "c4", "g3", "g4"};
    const double beat = brief.seconds / 16.0;
    for (std::size_t i = 0; i < tune.size(); ++i) {
        const double at = (static_cast<double>(i) + 0.15) * beat;
        MixAt(chimes, MusicBox(brief.rate, NoteHz(tune[i]), 0.9, brief.chance), at);
        if (i % 2 == 0)
            MixAt(chimes, MusicBox(brief.rate, NoteHz(bass[i / 2]), 0.8, brief.chance), at, 0.5);
        if (i == 5 || i == 9)
            MixAt(chimes, MusicBox(brief.rate, NoteHz("g5"), 0.5, brief.chance), at + 0.5 * beat,
                  0.6);
    }
    // A tinny loudspeaker on the roof, and a tape that wavers.
    Sound speaker = Resonate(chimes, {{900, 1.5, 0.6}, {2100, 2.0, 0.8}}, 0.6);
    NormalisePeak(speaker);
    Saturate(speaker, 1.6);
    MixAt(speaker, RunEngine(small_car_engine, brief.Blank(), 6.2, 0.7, brief.chance), 0.0, 0.22);
    AddRoom(speaker, street_room);
    return speaker;
}

Sound Motorbike(Brief brief) {
    // The two cylinders fire unevenly: potato, potato. Five copies run at once, so its revs and its
    // level wander, in periods that never fall together with the 0.4 s between the copies.
    std::vector<Curve::Point> revs, level;
    const double turn = 2.0 * std::numbers::pi / brief.seconds;
    for (double t = 0.0; t <= brief.seconds + 0.001; t += 0.05) {
        revs.push_back({t, 18.1 + 1.6 * std::sin(turn * t) + 0.8 * std::sin(turn * 5 * t + 1.0) +
                               0.5 * std::sin(turn * 11 * t + 2.0)});
        level.push_back(
            {t, 0.8 + 0.15 * std::sin(turn * 2 * t + 0.7) + 0.08 * std::sin(turn * 7 * t)});
    }
    return RunEngine(twin_engine, brief.Blank(), Curve(revs), Curve(level), brief.chance);
}

Sound SportsCar(Brief brief) {
    // It pulls up through a gear, lifts, and pulls again: round the loop it never arrives.
    Sound car = RunEngine(
        racy_engine, brief.Blank(), {{0.0, 62}, {2.3, 84}, {2.42, 60}, {2.55, 58}, {3.0, 62}},
        {{0.0, 1.0}, {2.28, 1.0}, {2.33, 0.3}, {2.48, 0.3}, {2.56, 1.0}}, brief.chance);
    MixAt(car, NoiseBand(car, 700, 7000, brief.chance), 0.0, 0.2);   // wind
    MixAt(car, NoiseBand(car, 180, 1100, brief.chance), 0.0, 0.32);  // tyres
    return car;
}

}  // namespace tamlo::soundsmith
