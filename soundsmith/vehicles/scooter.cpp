// The scooter: one small two-stroke cylinder, all rattle and rasp.
#include "vehicles.h"
#include "vocabulary/bodies.h"
#include "vocabulary/sources.h"

namespace tamlo::soundsmith {

namespace {

constexpr double idle = 25.0;        // firings a second, one a cycle
constexpr double idle_level = 0.31;  // of the level under load: the idle is a bed under speech
constexpr double idle_load = 0.55;
constexpr double idle_bright = 3400;

const EngineKind scooter{
    .cycle = EvenFirings({1.0}),
    .pulse = 0.0007,
    .uneven = 0.5,
    .exhaust = {{300, 3, 0.5}, {640, 4, 1.0}, {1300, 6, 1.1}, {2150, 7, 0.9}, {3200, 8, 0.5}},
    .direct = 0.35,
    .gas = 0.5,
    .gas_low_hz = 700,
    .gas_high_hz = 5200,
    .clatter = 0.25,
    .clatter_hz = 2900,
    .drive = 1.6,
    .high_pass_hz = 220,
};

// The kick lever runs down its ratchet and turns the engine over with a wheeze.
Sound Kick(int rate, Chance& chance) {
    Sound kick = Silence(rate, 0.5);
    for (int tooth = 0; tooth < 9; ++tooth)
        MixAt(kick, NoiseBurst(rate, 0.0005, 0.012, 1500, 7000, chance), 0.028 * tooth,
              chance.Between(0.25, 0.5));
    Sound wheeze = WhiteNoise(rate, 0.34, chance);
    wheeze = Resonate(wheeze, {{420, 3, 1.0}, {950, 4, 0.7}});
    Shape(wheeze, {{0.0, 0.0}, {0.1, 1.0}, {0.16, 0.2}, {0.24, 0.8}, {0.34, 0.0}});
    MixAt(kick, wheeze, 0.03, 0.8);
    const Body stop{{{210, 0.08, 1.0}, {470, 0.05, 0.8}, {1350, 0.04, 0.6}},
                    {0.7, 0.02, 500, 6000}};
    MixAt(kick, Hit(stop, rate, 1.0, chance), 0.3, 0.5);
    return kick;
}

}  // namespace

Sound ScooterIdle(Brief brief) {
    return DriveEngine(scooter, brief.Blank(), {idle, idle_load, idle_bright, 1.0}, brief.chance);
}

Sound ScooterStart(Brief brief) {
    Sound start = brief.Blank();
    MixAt(start, Kick(brief.rate, brief.chance), 0.0, 0.55);
    MixAt(start, Kick(brief.rate, brief.chance), 0.62, 0.55);
    // A cough of three firings, a gap, then it catches, revs up once and falls to its idle.
    const Ride ride{
        .cycles = {{0.0, 12},
                   {0.95, 12},
                   {1.2, 16},
                   {1.45, 28},
                   {1.75, 78},
                   {1.95, 84},
                   {2.5, 34},
                   {2.85, idle}},
        .load = {{0.0, 0.0},
                 {0.92, 0.0},
                 {0.93, 0.8},
                 {1.13, 0.7},
                 {1.14, 0.0},
                 {1.24, 0.0},
                 {1.25, 0.9},
                 {1.8, 1.0},
                 {2.1, 0.5},
                 {2.85, idle_load}},
        .bright_hz = {{0.0, 3000}, {1.3, 4000}, {1.75, 8000}, {2.2, 4500}, {2.85, idle_bright}},
        .level = {{0.0, 0.8}, {1.4, 1.0}, {2.0, 1.0}, {2.5, 0.4}, {2.95, idle_level}},
    };
    MixAt(start, DriveEngine(scooter, start, ride, brief.chance), 0.0);
    return start;
}

Sound ScooterPullsAway(Brief brief) {
    const Sound five_seconds = Silence(brief.rate, 5.0);  // a block is waited for in full
    const Ride ride{
        .cycles = {{0.0, idle},
                   {0.15, 40},
                   {0.35, 66},
                   {1.2, 86},
                   {2.7, 114},
                   {2.95, 104},
                   {3.8, 103},
                   {4.3, 46},
                   {4.5, 28},
                   {4.6, idle}},
        .load = {{0.0, idle_load},
                 {0.2, 0.9},
                 {0.5, 1.0},
                 {2.75, 1.0},
                 {2.95, 0.62},
                 {3.8, 0.6},
                 {3.95, 0.3},
                 {4.4, 0.35},
                 {4.6, idle_load}},
        .bright_hz = {{0.0, idle_bright},
                      {0.4, 7500},
                      {2.7, 11000},
                      {3.0, 6000},
                      {3.8, 6000},
                      {4.1, 3600},
                      {4.6, idle_bright}},
        .level = {{0.0, 0.3},
                  {0.25, 0.85},
                  {2.6, 1.0},
                  {3.0, 0.8},
                  {3.8, 0.75},
                  {4.3, 0.45},
                  {4.7, 1.4 * idle_level}},
    };
    return DriveEngine(scooter, five_seconds, ride, brief.chance);
}

}  // namespace tamlo::soundsmith
