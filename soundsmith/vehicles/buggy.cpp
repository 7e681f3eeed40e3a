// The dune buggy: an air-cooled flat four with open pipes, uneven and clattering.
#include <cmath>
#include <vector>

#include "vehicles.h"
#include "vocabulary/sources.h"

namespace tamlo::soundsmith {

namespace {

constexpr double idle = 30.0 / 4.0;  // cycles of four firings a second: six in the idle's loop
constexpr double idle_level = 0.27;
constexpr double idle_load = 0.5;
constexpr double fan = 0.0025;  // level of the cooling fan, for each cycle a second
constexpr double idle_bright = 3200;

const EngineKind buggy_engine{
    .cycle = {{0.0, 1.0}, {0.26, 0.72}, {0.5, 0.92}, {0.765, 0.6}},
    .pulse = 0.0008,
    .uneven = 0.3,
    .exhaust = {{150, 2.0, 0.8}, {320, 2.5, 1.0}, {640, 3.0, 1.1}, {1150, 4, 0.9}, {2100, 5, 0.5}},
    .direct = 0.6,
    .gas = 0.9,
    .gas_low_hz = 250,
    .gas_high_hz = 3200,
    .clatter = 0.5,
    .clatter_hz = 3400,
    .drive = 2.2,
    .high_pass_hz = 110,
};

// Pulses a second to cycles: the curves below are drawn in what is heard.
constexpr double P(double pulses) {
    return pulses / 4.0;
}

// The fan that cools the cylinders: a whine that climbs and falls with the engine.
void AddFan(Sound& engine, const Ride& ride) {
    constexpr double blades = 56.0;
    std::vector<Curve::Point> hz, level;
    for (double t = 0.0; t <= engine.Seconds(); t += 0.02) {
        // In a loop a whole number of waves, so that it joins.
        const double waves = blades * ride.cycles(t) * engine.Seconds();
        hz.push_back({t, (engine.loop ? std::round(waves) : waves) / engine.Seconds()});
        level.push_back({t, (ride.load(t) > 0.0 ? 1.0 : 0.0) * ride.level(t) * ride.cycles(t)});
    }
    Sound whine = Tone(engine.rate, engine.Seconds(), Curve(hz), {1.0, 0.5, 0.2});
    Shape(whine, Curve(level));
    MixAt(engine, whine, 0.0, fan);
}

Sound DriveBuggy(const Sound& like, const Ride& ride, Chance& chance) {
    Sound buggy = DriveEngine(buggy_engine, like, ride, chance);
    AddFan(buggy, ride);
    return buggy;
}

}  // namespace

Sound BuggyIdle(Brief brief) {
    return DriveBuggy(brief.Blank(), {idle, idle_load, idle_bright, 1.0}, brief.chance);
}

Sound BuggyStart(Brief brief) {
    Sound start = brief.Blank();
    MixAt(start, Starter(brief.rate, 0.95, 330, 8.5, brief.chance), 0.02, 0.5);
    const Ride ride{
        .cycles = {{0.0, P(14)},
                   {0.85, P(16)},
                   {1.0, P(60)},
                   {1.25, P(96)},
                   {1.5, P(84)},
                   {2.1, P(38)},
                   {2.5, idle}},
        .load = {{0.0, 0.0},
                 {0.5, 0.0},
                 {0.52, 0.35},
                 {0.85, 0.5},
                 {0.95, 1.0},
                 {1.4, 0.9},
                 {1.7, 0.45},
                 {2.5, idle_load}},
        .bright_hz = {{0.0, 1500}, {0.9, 3000}, {1.1, 8000}, {1.6, 4000}, {2.5, idle_bright}},
        .level =
            {{0.0, 0.6}, {0.9, 0.9}, {1.1, 1.0}, {1.6, 0.8}, {2.3, 0.3}, {2.75, 1.5 * idle_level}},
    };
    MixAt(start, DriveBuggy(start, ride, brief.chance), 0.0);
    return start;
}

Sound BuggyPullsAway(Brief brief) {
    const Ride ride{
        .cycles = {{0.0, idle},
                   {0.2, P(52)},
                   {1.35, P(118)},
                   {1.5, P(66)},
                   {1.65, P(70)},
                   {2.95, P(124)},
                   {3.1, P(76)},
                   {3.25, P(80)},
                   {4.3, P(116)},
                   {4.7, P(112)},
                   {5.1, P(50)},
                   {5.3, idle}},
        .load = {{0.0, idle_load},
                 {0.15, 0.9},
                 {1.3, 1.0},
                 {1.36, 0.25},
                 {1.55, 0.25},
                 {1.65, 1.0},
                 {2.9, 1.0},
                 {2.96, 0.25},
                 {3.15, 0.25},
                 {3.25, 0.95},
                 {4.3, 0.9},
                 {4.4, 0.55},
                 {4.7, 0.55},
                 {4.8, 0.3},
                 {5.3, idle_load}},
        .bright_hz = {{0.0, idle_bright},
                      {0.3, 6000},
                      {1.3, 9000},
                      {1.42, 2400},
                      {1.55, 2600},
                      {1.7, 7000},
                      {2.9, 9500},
                      {3.02, 2400},
                      {3.15, 2600},
                      {3.3, 7000},
                      {4.3, 8000},
                      {4.5, 4500},
                      {4.9, 2800},
                      {5.3, idle_bright}},
        .level = {{0.0, 0.3},
                  {0.25, 0.9},
                  {4.3, 1.0},
                  {4.7, 0.75},
                  {5.0, 0.4},
                  {5.4, 1.45 * idle_level}},
    };
    return DriveBuggy(brief.Blank(), ride, brief.chance);
}

}  // namespace tamlo::soundsmith
