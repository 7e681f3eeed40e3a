// The ambulance and the police.
#include <vector>

#include "filters.h"
#include "road.h"
#include "vocabulary/bodies.h"
#include "vocabulary/car_door.h"
#include "vocabulary/engine_kinds.h"
#include "vocabulary/horns.h"
#include "vocabulary/pass_by.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

namespace {

// Up and down between two pitches: a wail when slow, a yelp when fast.
Curve Sweeps(double low, double high, double up, double down, double seconds) {
    std::vector<Curve::Point> course;
    for (double t = 0.0; t < seconds; t += up + down) {
        course.push_back({t, low});
        course.push_back({t + 0.55 * up, low + 0.72 * (high - low)});  // it rises like a charge
        course.push_back({t + up, high});
    }
    return Curve(course);
}

}  // namespace

Sound Ambulance(Brief brief) {
    // The game itself lets it swell and fade, so the level here is steady; only the pitch tells
    // that it passes.
    Sound source = Siren(brief.rate, brief.seconds + 0.5, Sweeps(640, 1500, 0.3, 0.25, 5.0));
    Sound siren = brief.Blank();
    double place = 0.0;
    const Curve speed{{0.0, 1.045}, {1.45, 1.04}, {1.95, 0.955}, {4.0, 0.95}};
    for (std::size_t i = 0; i < siren.samples.size(); ++i) {
        const auto whole = static_cast<std::size_t>(place);
        const double part = place - static_cast<double>(whole);
        siren.samples[i] = (1.0 - part) * source.samples[whole] + part * source.samples[whole + 1];
        place += speed(static_cast<double>(i) / brief.rate);
    }
    MixAt(
        siren,
        RunEngine(small_car_engine, siren, {{0.0, 24}, {1.5, 26}, {2.0, 23.5}}, 1.0, brief.chance),
        0.0, 0.16);
    MixAt(siren, NoiseBand(siren, 200, 2500, brief.chance), 0.0, 0.1);
    AddRoom(siren, street_room);
    return siren;
}

Sound PoliceStop(Brief brief) {
    // A wail comes up from behind, yelps, and is cut off as the car draws up.
    const double stop = 4.3;
    const double yelp = 3.3;
    Sound siren = Siren(brief.rate, yelp, Sweeps(600, 1450, 1.0, 0.9, yelp));
    FadeOut(siren, 0.02);
    Sound scene = brief.Blank();
    MixAt(scene, siren, 0.05);
    Sound short_yelp = Siren(brief.rate, 0.75, Sweeps(700, 1550, 0.13, 0.12, 0.75));
    FadeOut(short_yelp, 0.03);
    MixAt(scene, short_yelp, yelp + 0.1);
    const Curve nearer{{0.0, 0.16}, {1.5, 0.34}, {2.8, 0.85}, {3.6, 1.0}};
    Shape(scene, nearer);
    MovingLowPass(scene, {{0.0, 1800}, {2.0, 4500}, {3.2, 14000}});
    Sound car = RunEngine(patrol_car_engine, scene,
                          {{0.0, 13}, {3.0, 11}, {stop, 6.0}, {5.9, 5.4}, {6.2, 2.0}},
                          {{0.0, 0.7}, {stop, 0.6}, {5.85, 0.6}, {6.15, 0.0}}, brief.chance);
    Shape(car, {{0.0, 0.1}, {2.8, 0.6}, {stop, 1.0}, {6.2, 0.8}, {6.25, 0.0}});
    MixAt(scene, car, 0.0, 0.7);
    Sound tyres = NoiseBand(scene, 250, 2600, brief.chance);
    Shape(tyres, {{0.0, 0.05}, {2.8, 0.4}, {3.7, 0.6}, {stop, 0.0}});
    MixAt(scene, tyres, 0.0, 0.3);
    MixAt(scene, CarDoorOpens(brief.rate, brief.chance), 6.3, 0.6);
    MixAt(scene, CarDoorShuts(brief.rate, brief.chance), 6.75, 1.1);
    AddWalk(scene, HeavyShoe(), {3, 7.3, 0.46, 1.0, 1.4}, brief.chance);
    AddRoom(scene, street_room);
    return scene;
}

}  // namespace tamlo::soundsmith
