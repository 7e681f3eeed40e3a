// Six ways to call at a door: knocks and bells.
#include <cmath>

#include "door.h"
#include "filters.h"
#include "vocabulary/bodies.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/voices.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

namespace {

// A panel door of wood, struck with knuckles.
const Body wood{
    {{168, 0.12, 1.0}, {272, 0.1, 0.9}, {388, 0.08, 0.7}, {655, 0.05, 0.5}, {1180, 0.03, 0.35}},
    {0.9, 0.008, 600, 5000},
    0.02};

// The same door under a fist: lower, longer, with a rattle in its frame.
const Body heavy_wood{
    {{84, 0.2, 1.0}, {137, 0.17, 1.0}, {196, 0.13, 0.8}, {331, 0.08, 0.5}, {560, 0.05, 0.3}},
    {0.8, 0.025, 200, 2500},
    0.02};

const Body iron{
    {{412, 0.35, 1.0}, {965, 0.3, 0.9}, {1710, 0.25, 0.8}, {2840, 0.2, 0.7}, {4370, 0.12, 0.4}},
    {0.7, 0.008, 1500, 9000},
    0.01};

Sound FrameRattle(int rate, Chance& chance) {
    Sound rattle = Silence(rate, 0.2);
    const Body part{{{720, 0.03, 1.0}, {1650, 0.02, 0.8}}, {0.5, 0.006, 900, 5000}};
    for (int i = 0; i < 4; ++i)
        MixAt(rattle, Hit(part, rate, 0.6, chance), 0.03 + 0.028 * i * chance.About(0.2),
              0.7 - 0.15 * i);
    return rattle;
}

/// What is heard behind the door while the bell rings out, at `share` of the bell's peak: the
/// player waits for the file's end.
void AddInside(Sound& bell, Sound inside, double share) {
    BehindDoor(inside);
    NormalisePeak(inside, share * Peak(bell));
    MixAt(bell, inside, 0.0);
}

}  // namespace

Sound KnockOnWood(Brief brief) {
    Sound knocks = brief.Blank();
    const double strengths[] = {0.9, 1.0, 0.95, 0.95, 1.0, 0.9};
    for (int i = 0; i < 6; ++i) {
        const double at = 0.05 + 0.2 * i + (i >= 3 ? 0.62 : 0.0);
        MixAt(knocks, Hit(wood, brief.rate, strengths[i], brief.chance),
              at * brief.chance.About(0.008));
    }
    AddRoom(knocks, hallway);
    return knocks;
}

Sound DingDong(Brief brief) {
    // Two tuned plates over their tubes, which lengthen the lowest tone.
    Sound bell = brief.Blank();
    const auto plate = [&](double hz, double fall) {
        Body body = BarOf(hz, fall);
        body.modes.push_back({hz * 2.003, fall * 0.5, 0.25});
        body.click = {0.35, 0.012, 900, 5000};
        return Hit(body, brief.rate, 1.0, brief.chance);
    };
    MixAt(bell, plate(659.3, 2.6), 0.04);
    MixAt(bell, plate(523.3, 3.2), 0.78, 1.05);
    AddRoom(bell, hallway);
    Sound inside = brief.Blank();
    AddWalk(inside, HouseSlipper(), {6, 1.9, 0.36, 0.5, 1.3}, brief.chance);
    AddInside(bell, inside, 0.22);
    return bell;
}

Sound Buzzer(Brief brief) {
    Sound buzzer = brief.Blank();
    for (const auto& [start, length] : {std::pair{0.03, 0.5}, std::pair{0.78, 0.85}}) {
        // An armature that a coil pulls a hundred times a second, and its tin box.
        std::vector<Curve::Point> pitch;
        for (double t = 0.0; t <= length; t += 0.02)
            pitch.push_back(
                {t, 100.0 * (1.0 - 0.12 * std::exp(-t / 0.03)) * brief.chance.About(0.006)});
        Sound buzz = Tone(brief.rate, length, Curve(pitch), FallingHarmonics(60, -1.5));
        buzz =
            Resonate(buzz, {{480, 3, 1.0}, {1150, 4, 1.0}, {2450, 5, 0.9}, {4100, 5, 0.4}}, 0.05);
        Sound rattle = NoiseBand(buzz, 2000, 7000, brief.chance);
        for (std::size_t i = 0; i < rattle.samples.size(); ++i)
            rattle.samples[i] *= std::abs(buzz.samples[i]);
        MixAt(buzz, rattle, 0.0, 0.5);
        Shape(buzz, {{0.0, 0.0}, {0.008, 1.0}, {length - 0.02, 0.9}, {length, 0.0}});
        MixAt(buzzer, buzz, start);
    }
    AddRoom(buzzer, hallway);
    return buzzer;
}

Sound Chime(Brief brief) {
    // Four long tubes, as in a hall clock: the last and lowest rings out.
    Sound chime = brief.Blank();
    const double notes[] = {659.3, 523.3, 587.3, 392.0};
    for (int i = 0; i < 4; ++i) {
        const double hz = notes[i];
        const Body tube{{{hz, 2.4, 1.0},
                         {hz * 0.5, 1.4, 0.2},
                         {hz * 1.5, 1.2, 0.3},
                         {hz * 2.0, 1.5, 0.55},
                         {hz * 2.67, 0.7, 0.25},
                         {hz * 4.17, 0.3, 0.15}},
                        {0.2, 0.01, 1500, 6000},
                        0.0005};
        MixAt(chime, Hit(tube, brief.rate, 1.0, brief.chance), 0.04 + 0.46 * i,
              i == 3 ? 1.15 : 1.0);
    }
    AddRoom(chime, hallway);
    Sound inside = brief.Blank();
    for (const double at : {2.5, 2.85})
        MixAt(inside, Bark(brief.rate, 420, 0.2, brief.chance), at, 1.2);
    AddWalk(inside, HouseSlipper(), {5, 2.3, 0.34, 0.3, 0.8}, brief.chance);
    AddInside(chime, inside, 0.25);
    return chime;
}

Sound IronKnocker(Brief brief) {
    Sound knocker = brief.Blank();
    double at = 0.04;
    for (const double strength : {0.85, 0.95, 1.0}) {
        MixAt(knocker, Hit(iron, brief.rate, strength, brief.chance), at, 0.6);
        MixAt(knocker, Hit(heavy_wood, brief.rate, strength, brief.chance), at + 0.001);
        MixAt(knocker, Hit(iron, brief.rate, 0.3, brief.chance), at + 0.085, 0.35);  // it bounces
        at += 0.38;
    }
    AddRoom(knocker, hallway);
    return knocker;
}

Sound ImpatientFist(Brief brief) {
    Sound fist = brief.Blank();
    double at = 0.04;
    for (int i = 0; i < 6; ++i) {
        const double strength = 0.85 + 0.03 * i;
        MixAt(fist, Hit(heavy_wood, brief.rate, strength, brief.chance), at);
        MixAt(fist, FrameRattle(brief.rate, brief.chance), at + 0.01, 0.4);
        at += 0.175 * brief.chance.About(0.06);
    }
    AddRoom(fist, hallway);
    return fist;
}

}  // namespace tamlo::soundsmith
