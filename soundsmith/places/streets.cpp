// Four streets to drive through. Each is a soft bed with events well above it, all out of the range
// that speech needs most or short enough not to cover it.
#include <cmath>
#include <string>
#include <vector>

#include "filters.h"
#include "places.h"
#include "vocabulary/bodies.h"
#include "vocabulary/engine_kinds.h"
#include "vocabulary/horns.h"
#include "vocabulary/pass_by.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/voices.h"

namespace tamlo::soundsmith {

namespace {

// Slow rise and fall through `points` values, joined around the loop.
Curve Swell(double seconds, int points, double low, double high, Chance& chance) {
    std::vector<Curve::Point> course;
    course.reserve(static_cast<std::size_t>(points) + 1);
    for (int i = 0; i < points; ++i)
        course.push_back({seconds * i / points, chance.Between(low, high)});
    course.push_back({seconds, course.front().value});
    return Curve(course);
}

Sound FarTraffic(const Sound& like, Chance& chance) {
    Sound traffic = NoiseBand(like, 50, 320, chance);
    Shape(traffic, Swell(like.Seconds(), 5, 0.5, 1.0, chance));
    return traffic;
}

// A car that passes in six seconds, `wet` from 0 (dry road) to 1 (spray).
Sound PassingCar(int rate, double speed, double distance, double wet, Chance& chance) {
    const double seconds = 6.0;
    const Sound blank = Silence(rate, seconds);
    Sound car = RunEngine(small_car_engine, blank, chance.Between(16, 26), 0.8, chance);
    Gain(car, 0.9);
    MixAt(car, NoiseBand(blank, 250, 1800, chance), 0.0, 0.6);
    if (wet > 0.0) MixAt(car, NoiseBand(blank, 1500, 9000, chance), 0.0, 1.3 * wet);
    Sound passing = Passing(car, {0.5 * seconds, speed, distance}, seconds);
    Shape(passing, {{0.0, 0.0}, {1.0, 1.0}, {seconds - 1.0, 1.0}, {seconds, 0.0}});
    return passing;
}

Sound FarAway(Sound sound, double hz) {
    LowPass(sound, hz);
    AddRoom(sound, {25, 1.2, 1800, 0.5});
    return sound;
}

// Leaves that a gust shakes: many small ticks whose number follows the wind.
void AddLeaves(Sound& onto, const Curve& wind, Chance& chance) {
    for (double at = 0.0; at < onto.Seconds(); at += 0.006) {
        const double strength = wind(at);
        if (chance.Next() < strength * strength)
            MixAt(onto, NoiseBurst(onto.rate, 0.002, 0.012, 2500, 9000, chance), at,
                  0.25 * chance.Between(0.2, 1.0) * strength);
    }
}

// A drop into a puddle: a bubble whose pitch rises as it closes.
Sound Plop(int rate, Chance& chance) {
    const double hz = chance.Between(700, 1900);
    Sound plop = Tone(rate, 0.07, {{0.0, hz}, {0.07, hz * 1.5}}, {1.0, 0.1});
    Shape(plop, {{0.0, 0.0}, {0.003, 1.0}, {0.02, 0.4}, {0.07, 0.0}});
    return plop;
}

}  // namespace

Sound QuietSuburb(Brief brief) {
    Chance& chance = brief.chance;
    Sound street = brief.Blank();
    MixAt(street, FarTraffic(street, chance), 0.0, 0.3);
    struct Bird {
        double hz;
        int notes;
        double level;
        std::initializer_list<double> at;
    };
    const Bird birds[] = {{3900, 6, 0.5, {0.5, 3.6, 7.1}},
                          {2850, 4, 0.38, {2.0, 5.4, 8.8}},
                          {4600, 7, 0.22, {1.3, 4.6, 6.3, 9.2}}};
    for (const Bird& bird : birds)
        for (const double at : bird.at) {
            // The same bird sings the same phrase, a little changed.
            Chance song("bird " + std::to_string(bird.notes));
            MixAt(street, BirdPhrase(brief.rate, bird.hz * chance.About(0.01), bird.notes, song),
                  at + chance.Between(-0.2, 0.2), bird.level * chance.About(0.2));
        }
    // Two doves, and a car that goes by a street away.
    for (const double at : {2.9, 7.9})
        for (const double coo : {0.0, 0.42, 0.95}) {
            Sound dove = Tone(brief.rate, 0.34, {{0.0, 480}, {0.12, 540}, {0.34, 500}}, {1.0, 0.1});
            Shape(dove, {{0.0, 0.0}, {0.1, 1.0}, {0.2, 0.8}, {0.34, 0.0}});
            MixAt(street, dove, at + coo, 0.13);
        }
    MixAt(street, FarAway(PassingCar(brief.rate, 9, 20, 0.0, chance), 900), 3.0, 0.35);
    AddRoom(street, {20, 0.8, 3000, 0.15});
    return street;
}

Sound Avenue(Brief brief) {
    Chance& chance = brief.chance;
    Sound street = brief.Blank();
    MixAt(street, FarTraffic(street, chance), 0.0, 0.22);
    struct Car {
        double at, speed, distance, level;
    };
    for (const Car& car :
         {Car{-1.6, 17, 4.5, 1.0}, {1.0, 21, 6, 0.7}, {3.1, 15, 4, 1.0}, {5.6, 19, 5, 0.8}})
        MixAt(street, PassingCar(brief.rate, car.speed, car.distance, 0.0, chance), car.at,
              car.level);
    const auto far_horn = [&](double seconds, const HornKind& kind) {
        return FarAway(Horn(brief.rate, kind, seconds, chance), 1900);
    };
    const HornKind other{{311, 392}, -4, 1800, 0.02};
    MixAt(street, far_horn(0.35, car_horn), 2.75, 0.28);
    MixAt(street, far_horn(0.16, other), 7.3, 0.24);
    MixAt(street, far_horn(0.5, other), 7.6, 0.24);
    AddRoom(street, street_room);
    return street;
}

Sound WindyStreet(Brief brief) {
    Chance& chance = brief.chance;
    Sound street = brief.Blank();
    // Three gusts; the whistle of each around the corners follows its strength.
    const Curve wind{{0.0, 0.25}, {1.3, 0.9}, {2.6, 0.35}, {4.4, 0.75},
                     {5.3, 0.3},  {7.2, 1.0}, {8.6, 0.4},  {10.0, 0.25}};
    Sound body = NoiseBand(street, 90, 420, chance);
    Shape(body, wind);
    MixAt(street, body, 0.0, 0.6);
    for (const double hz : {480.0, 655.0, 890.0}) {
        Sound whistle = NoiseBand(street, hz * 0.5, hz * 2, chance);
        BandPass(whistle, hz, 9);
        for (std::size_t i = 0; i < whistle.samples.size(); ++i) {
            const double strength = wind(static_cast<double>(i) / brief.rate);
            whistle.samples[i] *= strength * strength;
        }
        MixAt(street, whistle, 0.0, 500.0 / hz);
    }
    AddLeaves(street, wind, chance);
    for (const double at : {2.9, 3.35, 8.3})
        MixAt(street, FarAway(Bark(brief.rate, 380, 0.25, chance), 1100), at, 0.16);
    for (const double at : {0.4, 4.9, 5.7, 9.1})
        MixAt(street, FarAway(ChildCall(brief.rate, chance), 2200), at, 0.1);
    const Body gate{{{410, 0.2, 1.0}, {930, 0.15, 0.8}, {1720, 0.1, 0.5}}, {0.4, 0.01, 800, 5000}};
    MixAt(street, FarAway(Hit(gate, brief.rate, 1.0, chance), 2500), 7.35, 0.2);  // a gate slams
    MixAt(street, FarAway(Hit(gate, brief.rate, 0.6, chance), 2500), 7.6, 0.15);
    return street;
}

Sound Rain(Brief brief) {
    Chance& chance = brief.chance;
    Sound street = brief.Blank();
    Sound fall = NoiseBand(street, 900, 8000, chance);
    Shape(fall, Swell(brief.seconds, 6, 0.75, 1.0, chance));
    MixAt(street, fall, 0.0, 0.07);
    for (double at = 0.0; at < brief.seconds; at += 0.011)  // drops nearby, on tin and stone
        if (chance.OneIn(1.6))
            MixAt(street,
                  NoiseBurst(brief.rate, 0.0003, 0.006, chance.Between(1200, 3500), 9500, chance),
                  at + chance.Between(0.0, 0.01), 0.5 * std::pow(chance.Next(), 3.0));
    for (double at = 0.0; at < brief.seconds; at += chance.Between(0.05, 0.22))  // the gutter
        MixAt(street, Plop(brief.rate, chance), at, chance.Between(0.03, 0.16));
    const Body sill{
        {{820, 0.06, 1.0}, {1760, 0.05, 0.8}, {3300, 0.03, 0.4}}, {0.6, 0.004, 1500, 8000}, 0.05};
    for (int i = 0; i < 14; ++i)  // a drip on a window sill keeps its own slow time
        MixAt(street, Hit(sill, brief.rate, 0.8, chance),
              brief.seconds * (i + chance.Between(0.3, 0.5)) / 14, 0.3);
    MixAt(street, PassingCar(brief.rate, 16, 6, 1.0, chance), 0.2, 0.24);
    MixAt(street, PassingCar(brief.rate, 19, 7, 1.0, chance), 5.3, 0.19);
    AddRoom(street, street_room);
    return street;
}

}  // namespace tamlo::soundsmith
