// Three ways in which a door is opened.
#include "door.h"
#include "filters.h"
#include "vocabulary/bodies.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/voices.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

namespace {

const Body lock_body{{{610, 0.05, 0.8}, {1380, 0.045, 1.0}, {2470, 0.035, 0.8}, {3900, 0.02, 0.5}},
                     {0.8, 0.01, 900, 8000},
                     0.03};

const Body bolt{{{240, 0.08, 0.9}, {720, 0.07, 1.0}, {1450, 0.06, 0.8}, {2900, 0.04, 0.5}},
                {0.9, 0.015, 500, 6000},
                0.02};

// The key goes round: wards and tumblers, then the bolt of the lock springs back.
Sound TurnLock(int rate, Chance& chance) {
    Sound lock = Silence(rate, 0.5);
    for (int i = 0; i < 3; ++i)
        MixAt(lock, Hit(lock_body, rate, 0.5, chance), 0.05 * i * chance.About(0.1), 0.4);
    MixAt(lock, Hit(lock_body, rate, 1.0, chance), 0.2);
    MixAt(lock, Hit(bolt, rate, 0.8, chance), 0.215, 0.7);
    return lock;
}

// A dry hinge sticks and slips, some sixty times a second, faster as the door swings.
Sound Creak(int rate, double seconds, double low, double high, Chance& chance) {
    Sound slips = Silence(rate, seconds);
    const Curve rate_of_slips{{0.0, low},
                              {0.35 * seconds, high},
                              {0.6 * seconds, 0.8 * high},
                              {0.8 * seconds, high * 1.1},
                              {seconds, low}};
    for (double t = 0.01; t < seconds; t += 1.0 / (rate_of_slips(t) * chance.About(0.1)))
        AddImpulse(slips, t, chance.Between(0.6, 1.0));
    Sound creak = Resonate(slips, {{780, 9, 1.0}, {1480, 10, 0.9}, {2600, 10, 0.6}, {390, 6, 0.4}});
    Shape(creak, {{0.0, 0.0},
                  {0.15 * seconds, 0.7},
                  {0.5 * seconds, 0.5},
                  {0.8 * seconds, 1.0},
                  {seconds, 0.0}});
    NormalisePeak(creak);
    return creak;
}

Sound DoorSwings(int rate, Chance& chance) {
    Sound air = NoiseBurst(rate, 0.2, 0.35, 120, 900, chance);
    MixAt(air, NoiseBurst(rate, 0.002, 0.06, 200, 2500, chance), 0.0, 1.2);  // it leaves its seal
    return air;
}

Sound Chain(int rate, Chance& chance) {
    Sound chain = Silence(rate, 0.75);
    const Body link{{{2350, 0.06, 1.0}, {3720, 0.06, 0.9}, {5600, 0.045, 0.7}, {7900, 0.03, 0.4}},
                    {0.3, 0.004, 2500, 10000},
                    0.2};
    for (int i = 0; i < 22; ++i)
        MixAt(chain, Hit(link, rate, chance.Between(0.3, 1.0), chance), chance.Between(0.0, 0.55));
    MixAt(chain, Hit(Scaled(link, 0.6), rate, 1.0, chance), 0.6, 1.2);  // its end slides out
    return chain;
}

}  // namespace

Sound LockAndCreak(Brief brief) {
    Sound scene = brief.Blank();
    MixAt(scene, TurnLock(brief.rate, brief.chance), 0.05);
    MixAt(scene, DoorSwings(brief.rate, brief.chance), 0.62, 0.7);
    MixAt(scene, Creak(brief.rate, 0.75, 48, 85, brief.chance), 0.7, 0.45);
    AddRoom(scene, hallway);
    return scene;
}

Sound ChainAndBolt(Brief brief) {
    Sound inside = brief.Blank();
    AddWalk(inside, HouseSlipper(), {6, 0.08, 0.4, 0.35, 1.3}, brief.chance);
    AddRoom(inside, hallway);
    BehindDoor(inside);
    Sound scene = brief.Blank();
    MixAt(scene, inside, 0.0, 1.6);
    MixAt(scene, Chain(brief.rate, brief.chance), 2.45, 0.3);
    Sound slide = NoiseBurst(brief.rate, 0.12, 0.04, 700, 3500, brief.chance);
    MixAt(scene, slide, 3.3, 0.5);
    MixAt(scene, Hit(bolt, brief.rate, 1.0, brief.chance), 3.42);
    MixAt(scene, Hit(lock_body, brief.rate, 0.8, brief.chance), 3.75, 0.5);
    MixAt(scene, DoorSwings(brief.rate, brief.chance), 3.95, 0.7);
    MixAt(scene, Creak(brief.rate, 0.5, 55, 75, brief.chance), 4.05, 0.25);
    AddRoom(scene, porch);
    return scene;
}

Sound DogBehindDoor(Brief brief) {
    Sound inside = brief.Blank();
    for (const double at : {0.1, 0.5, 1.35, 1.75, 2.15, 3.1})
        MixAt(inside, Bark(brief.rate, 330, 0.27, brief.chance), at);
    AddWalk(inside, HouseSlipper(), {8, 1.5, 0.28, 0.4, 1.4}, brief.chance);
    AddRoom(inside, hallway);
    BehindDoor(inside);
    Sound scene = brief.Blank();
    MixAt(scene, inside, 0.0, 1.3);
    MixAt(scene, TurnLock(brief.rate, brief.chance), 3.75, 0.7);
    MixAt(scene, DoorSwings(brief.rate, brief.chance), 4.25, 0.6);
    MixAt(scene, Creak(brief.rate, 1.15, 42, 95, brief.chance), 4.3, 0.45);
    for (const double at : {5.6, 6.0, 6.55})
        MixAt(scene, Bark(brief.rate, 330, 0.28, brief.chance), at, 0.8);
    AddRoom(scene, porch);
    return scene;
}

}  // namespace tamlo::soundsmith
