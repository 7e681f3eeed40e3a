// On wheels without an engine: bicycle, trolley, skateboard, carriage.
#include <cmath>
#include <numbers>

#include "filters.h"
#include "road.h"
#include "vocabulary/bodies.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

namespace {

// A rough roll: noise that the grain of the road lifts and drops `per_second` times, a whole number
// of times around the loop.
Sound Roll(const Sound& like, double low_hz, double high_hz, double per_second, Chance& chance) {
    Sound roll = NoiseBand(like, low_hz, high_hz, chance);
    const double turn =
        2.0 * std::numbers::pi * std::round(per_second * like.Seconds()) / like.Seconds();
    for (std::size_t i = 0; i < roll.samples.size(); ++i) {
        const double time = static_cast<double>(i) / like.rate;
        roll.samples[i] *=
            0.75 + 0.25 * std::sin(turn * time) * std::sin(turn * 0.5 * time * 2.0 + 1.0);
    }
    return roll;
}

}  // namespace

Sound Bicycle(Brief brief) {
    Sound bicycle = brief.Blank();
    // The thumb bell: a clapper runs round inside the cup, so each ring is a quick row of strokes.
    Body cup = BellOf(2350, 0.75);
    cup.click = {0.2, 0.004, 3000, 10000};
    for (const double ring : {0.35, 0.75})
        for (int stroke = 0; stroke < 5; ++stroke)
            MixAt(bicycle, Hit(cup, brief.rate, 1.0 - 0.14 * stroke, brief.chance),
                  ring + 0.038 * stroke, 0.45);
    const Body pawl{{{2900, 0.012, 0.8}, {4700, 0.01, 1.0}, {6900, 0.008, 0.6}},
                    {0.6, 0.003, 2500, 9000},
                    0.02};
    const int ticks = 41;
    for (int i = 0; i < ticks; ++i)
        MixAt(bicycle, Hit(pawl, brief.rate, brief.chance.Between(0.75, 1.0), brief.chance),
              brief.seconds * (i + 0.5) / ticks, 0.35);
    MixAt(bicycle, Roll(bicycle, 1800, 6000, 3, brief.chance), 0.0, 0.06);
    return bicycle;
}

Sound Trolley(Brief brief) {
    Sound trolley = brief.Blank();
    const Body wire{{{1180, 0.09, 0.8}, {1930, 0.08, 1.0}, {3120, 0.06, 0.8}, {4850, 0.04, 0.5}},
                    {0.5, 0.006, 1500, 9000},
                    0.15};
    const Body frame{
        {{210, 0.06, 1.0}, {470, 0.05, 0.8}, {860, 0.04, 0.5}}, {0.5, 0.01, 500, 4000}, 0.1};
    for (int i = 0; i < 34; ++i) {
        const double at = brief.seconds * (i + brief.chance.Between(0.15, 0.85)) / 34;
        MixAt(trolley, Hit(wire, brief.rate, brief.chance.Between(0.3, 1.0), brief.chance), at,
              0.3);
        if (i % 2 == 0)
            MixAt(trolley, Hit(frame, brief.rate, brief.chance.Between(0.5, 1.0), brief.chance), at,
                  0.6);
    }
    MixAt(trolley, Roll(trolley, 350, 2600, 11, brief.chance), 0.0, 0.3);
    for (const double at : {0.42, 1.31}) {  // one wheel wants oil
        Sound squeak = Tone(brief.rate, 0.3, {{0.0, 2050}, {0.08, 2480}, {0.2, 2350}, {0.3, 1900}},
                            {1.0, 0.45, 0.3, 0.12});
        Shape(squeak, {{0.0, 0.0}, {0.05, 0.7}, {0.2, 1.0}, {0.3, 0.0}});
        MixAt(trolley, squeak, at, 0.32);
    }
    return trolley;
}

Sound Skateboard(Brief brief) {
    Sound board = Roll(brief.Blank(), 160, 3200, 23, brief.chance);
    board = Resonate(board, {{240, 1.5, 1.0}, {620, 2, 0.9}, {1350, 2, 0.7}}, 0.35);
    const Body slab{{{175, 0.07, 1.0}, {390, 0.06, 1.0}, {840, 0.05, 0.8}, {1700, 0.03, 0.5}},
                    {1.0, 0.01, 800, 7000},
                    0.05};
    for (int i = 0; i < 3; ++i) {  // front wheels, back wheels, over each gap
        const double at = brief.seconds * (i + 0.5) / 3;
        MixAt(board, Hit(slab, brief.rate, 1.0, brief.chance), at, 1.5);
        MixAt(board, Hit(slab, brief.rate, 0.85, brief.chance), at + 0.105, 1.4);
    }
    return board;
}

Sound HorseAndCarriage(Brief brief) {
    Sound carriage = brief.Blank();
    // A walk: four hooves, two rounds, the beats in uneven pairs.
    const double round = brief.seconds / 2.0;
    for (int i = 0; i < 8; ++i) {
        const double pair = (i % 4) * 0.25 + (i % 2 == 1 ? -0.035 : 0.0);
        const int rounds = i / 4;  // before this one
        const double at = round * rounds + round * pair + 0.12;
        MixAt(carriage, Clop(brief.rate, i % 2 == 0 ? 1.12 : 0.92, 1.0, brief.chance), at);
    }
    const Body jingle{
        {{3900, 0.14, 1.0}, {5300, 0.12, 0.8}, {7100, 0.09, 0.6}}, {0.1, 0.003, 3000, 9000}, 0.12};
    for (int i = 0; i < 8; ++i)
        for (int k = 0; k < 3; ++k)
            MixAt(carriage, Hit(jingle, brief.rate, brief.chance.Between(0.4, 1.0), brief.chance),
                  0.25 * i + brief.chance.Between(0.1, 0.25), 0.07);
    Sound wheels = Roll(carriage, 120, 900, 6, brief.chance);
    MixAt(carriage, wheels, 0.0, 0.11);
    for (int i = 0; i < 26; ++i)  // iron tyres on grit
        MixAt(carriage, NoiseBurst(brief.rate, 0.0005, 0.012, 900, 5000, brief.chance),
              brief.chance.Between(0.0, brief.seconds), brief.chance.Between(0.05, 0.2));
    Sound creak =
        Tone(brief.rate, 0.22, {{0.0, 410}, {0.1, 520}, {0.22, 380}}, FallingHarmonics(9, -4));
    Shape(creak, {{0.0, 0.0}, {0.08, 1.0}, {0.22, 0.0}});
    MixAt(carriage, creak, 0.7, 0.05);
    AddRoom(carriage, {14, 0.5, 2600, 0.15});
    return carriage;
}

}  // namespace tamlo::soundsmith
