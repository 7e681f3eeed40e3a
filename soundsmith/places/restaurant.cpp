// The restaurant at work: guests, kitchen and till.
#include "filters.h"
#include "places.h"
#include "vocabulary/bodies.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/voices.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

namespace {

const Body fork{
    {{3150, 0.12, 0.8}, {5230, 0.1, 1.0}, {7480, 0.06, 0.5}}, {0.4, 0.003, 3000, 10000}, 0.1};
const Body plate_body{{{1420, 0.09, 1.0}, {2610, 0.08, 0.9}, {3940, 0.05, 0.6}, {5800, 0.03, 0.3}},
                      {0.6, 0.006, 1500, 8000},
                      0.12};
const Body glass{
    {{2240, 0.5, 1.0}, {3670, 0.4, 0.6}, {6120, 0.25, 0.35}}, {0.2, 0.003, 3000, 10000}, 0.08};

// Someone eats: a few touches of fork and plate.
Sound Cutlery(int rate, Chance& chance) {
    Sound eating = Silence(rate, 1.2);
    const int touches = 2 + static_cast<int>(chance.Between(0, 4));
    double at = 0.0;
    for (int i = 0; i < touches; ++i) {
        MixAt(eating, Hit(fork, rate, chance.Between(0.4, 1.0), chance), at, 0.5);
        MixAt(eating, Hit(plate_body, rate, chance.Between(0.3, 0.8), chance), at + 0.004, 0.7);
        at += chance.Between(0.09, 0.3);
    }
    return eating;
}

// Something wet meets a hot pan, spits, and calms down.
Sound Sizzle(int rate, double seconds, Chance& chance) {
    Sound sizzle = WhiteNoise(rate, seconds, chance);
    HighPass(sizzle, 2600);
    LowPass(sizzle, 8500);
    Shape(sizzle, {{0.0, 0.0}, {0.12, 1.0}, {0.4 * seconds, 0.45}, {seconds, 0.0}});
    Gain(sizzle, 0.35);
    for (int i = 0; i < static_cast<int>(45 * seconds); ++i) {
        const double at = chance.Between(0.0, seconds);
        MixAt(sizzle, NoiseBurst(rate, 0.0003, 0.006, 2000, 10000, chance), at,
              chance.Between(0.1, 0.9) * (1.0 - at / seconds));
    }
    return sizzle;
}

// Keys, the bell, the drawer.
Sound Till(int rate, Chance& chance) {
    Sound till = Silence(rate, 2.2);
    const Body key{
        {{520, 0.03, 0.8}, {1350, 0.025, 1.0}, {2600, 0.02, 0.5}}, {0.7, 0.006, 900, 7000}, 0.05};
    for (const double at : {0.0, 0.2, 0.42, 0.85})
        MixAt(till, Hit(key, rate, chance.Between(0.7, 1.0), chance), at, 0.7);
    MixAt(till, Hit(BellOf(2093, 0.9), rate, 1.0, chance), 0.9, 0.35);
    MixAt(till, NoiseBurst(rate, 0.08, 0.05, 300, 3000, chance), 0.95, 0.5);
    const Body drawer{{{190, 0.1, 1.0}, {430, 0.08, 0.8}, {1100, 0.05, 0.5}},
                      {0.8, 0.02, 400, 5000}};
    MixAt(till, Hit(drawer, rate, 1.0, chance), 1.08, 0.9);
    return till;
}

Sound ChairLegs(int rate, Chance& chance) {
    Sound scrape =
        Tone(rate, 0.45, {{0.0, 170}, {0.2, 215}, {0.45, 150}}, FallingHarmonics(22, -3));
    MixAt(scrape, NoiseBand(scrape, 400, 3000, chance), 0.0, 1.0);
    scrape = Resonate(scrape, {{480, 4, 1.0}, {1150, 5, 0.7}});
    Shape(scrape, {{0.0, 0.0}, {0.06, 1.0}, {0.25, 0.5}, {0.33, 0.9}, {0.45, 0.0}});
    return scrape;
}

}  // namespace

Sound Restaurant(Brief brief) {
    const int rate = brief.rate;
    Chance& chance = brief.chance;
    Sound room = brief.Blank();
    Sound guests = Murmur(room, 9, chance);
    NormalisePeak(guests, 0.5);
    MixAt(room, guests, 0.0);
    MixAt(room, NoiseBand(room, 60, 500, chance), 0.0, 0.02);  // the extractor hood
    for (double at = 0.4; at < brief.seconds; at += chance.Between(0.7, 2.1))
        MixAt(room, Cutlery(rate, chance), at, chance.Between(0.12, 0.34));
    for (const double at : {2.1, 8.4, 15.2, 21.9})
        MixAt(room, Hit(glass, rate, 0.8, chance), at + chance.Between(0.0, 1.0), 0.2);
    for (const double at : {5.0, 13.6, 22.7}) MixAt(room, Sizzle(rate, 3.2, chance), at, 0.3);
    for (const double at : {10.3, 24.0}) MixAt(room, Till(rate, chance), at, 0.4);
    for (int plate = 0; plate < 5; ++plate)  // plates put on a pile
        MixAt(room, Hit(plate_body, rate, 1.0, chance), 17.3 + 0.17 * plate, 0.35);
    MixAt(room, ChairLegs(rate, chance), 7.2, 0.16);
    MixAt(room, ChairLegs(rate, chance), 19.6, 0.13);
    AddWalk(room, HeavyShoe(), {7, 11.9, 0.5, 0.1, 0.25}, chance);
    AddRoom(room, shop);
    return room;
}

}  // namespace tamlo::soundsmith
