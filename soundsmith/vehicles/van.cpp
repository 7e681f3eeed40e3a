// The van: a big V8, deep and lazy, with the burble of its two uneven banks.
#include "vehicles.h"
#include "vocabulary/bodies.h"

namespace tamlo::soundsmith {

namespace {

constexpr double idle = 40.0 / 8.0;  // cycles of eight firings a second: fourteen in the loop
constexpr double idle_level = 0.22;
constexpr double idle_load = 0.6;
constexpr double idle_bright = 1900;

const EngineKind van{
    .cycle = EvenFirings({1.0, 0.72, 0.95, 0.9, 0.66, 1.0, 0.8, 0.7}),
    .pulse = 0.0015,
    .uneven = 0.15,
    .exhaust = {{68, 1.4, 1.1}, {125, 1.8, 1.0}, {245, 2.2, 1.1}, {410, 3, 0.8}, {760, 3, 0.55}},
    .direct = 0.5,
    .gas = 0.6,
    .gas_low_hz = 150,
    .gas_high_hz = 2200,
    .clatter = 0.12,
    .clatter_hz = 2100,
    .drive = 1.7,
    .high_pass_hz = 45,
};

constexpr double P(double pulses) {
    return pulses / 8.0;
}

}  // namespace

Sound VanIdle(Brief brief) {
    return DriveEngine(van, brief.Blank(), {idle, idle_load, idle_bright, 1.0}, brief.chance);
}

Sound VanStart(Brief brief) {
    Sound start = brief.Blank();
    const Body solenoid{{{320, 0.06, 1.0}, {860, 0.05, 0.9}, {2100, 0.03, 0.6}},
                        {0.8, 0.012, 800, 6000}};
    MixAt(start, Hit(solenoid, brief.rate, 1.0, brief.chance), 0.02, 0.35);
    MixAt(start, Starter(brief.rate, 3.2, 165, 5.4, brief.chance), 0.06, 0.55);
    // It cranks for long, fires a few times in vain, catches with a roar and settles slowly.
    const Ride ride{
        .cycles = {{0.0, P(22)},
                   {2.9, P(24)},
                   {3.2, P(70)},
                   {3.6, P(108)},
                   {4.0, P(92)},
                   {5.2, P(54)},
                   {6.2, idle}},
        .load = {{0.0, 0.0},
                 {1.7, 0.0},
                 {1.72, 0.5},
                 {1.95, 0.4},
                 {1.97, 0.0},
                 {2.5, 0.0},
                 {2.52, 0.6},
                 {3.1, 0.9},
                 {3.6, 1.0},
                 {4.2, 0.6},
                 {6.2, idle_load}},
        .bright_hz = {{0.0, 1200}, {3.0, 1600}, {3.5, 6000}, {4.2, 2600}, {6.2, idle_bright}},
        .level = {{0.0, 0.7}, {3.0, 0.8}, {3.5, 1.0}, {4.2, 0.75}, {5.4, 0.35}, {6.4, idle_level}},
    };
    MixAt(start, DriveEngine(van, start, ride, brief.chance), 0.0);
    return start;
}

Sound VanPullsAway(Brief brief) {
    const Ride ride{
        .cycles = {{0.0, idle},
                   {0.25, P(66)},
                   {1.5, P(136)},
                   {1.72, P(80)},
                   {1.85, P(82)},
                   {3.1, P(134)},
                   {3.3, P(100)},
                   {3.6, P(104)},
                   {4.0, P(58)},
                   {4.2, idle}},
        .load = {{0.0, idle_load},
                 {0.2, 0.95},
                 {1.45, 1.0},
                 {1.55, 0.4},
                 {1.75, 0.5},
                 {1.85, 1.0},
                 {3.1, 1.0},
                 {3.25, 0.55},
                 {3.6, 0.55},
                 {3.75, 0.35},
                 {4.2, idle_load}},
        .bright_hz = {{0.0, idle_bright},
                      {0.3, 4200},
                      {1.4, 6500},
                      {1.6, 1800},
                      {1.9, 4500},
                      {3.0, 6500},
                      {3.3, 3200},
                      {3.6, 3000},
                      {3.9, 1600},
                      {4.2, idle_bright}},
        .level = {{0.0, 0.3},
                  {0.3, 0.9},
                  {3.1, 1.0},
                  {3.4, 0.75},
                  {3.6, 0.7},
                  {3.9, 0.35},
                  {4.3, 1.25 * idle_level}},
    };
    return DriveEngine(van, brief.Blank(), ride, brief.chance);
}

}  // namespace tamlo::soundsmith
