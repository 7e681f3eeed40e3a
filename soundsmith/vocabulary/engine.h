// Engines, from a two-stroke's rattle to a V8: firings in their order, through an exhaust.
#pragma once

#include <vector>

#include "chance.h"
#include "curve.h"
#include "filters.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// One firing: its place in the engine's cycle, from 0 up to 1, and its strength.
struct Firing {
    double place;
    double strength;
};

struct EngineKind {
    std::vector<Firing> cycle;
    double pulse;                    // seconds in which a firing's pressure falls
    double uneven;                   // how far strengths differ from firing to firing, 0 to 1
    std::vector<Resonance> exhaust;  ///< pipes and box
    double direct;                   // the bare pulses, against the exhaust
    double gas;                      // noise of the gas, let out by each firing
    double gas_low_hz, gas_high_hz;
    double clatter;  ///< valves and chain: a tick with each firing
    double clatter_hz;
    double drive;         // how hard the sum is bent
    double high_pass_hz;  ///< keeps the engine clear of the lowest, lost on small speakers
};

/// Evenly spaced firings of these strengths.
std::vector<Firing> EvenFirings(std::initializer_list<double> strengths);

/// The engine over time, adding to the length of `like`: `cycles` a second, under `load` (0 to 1: a
/// firing's strength and brightness). In a loop the cycles are made to fit a whole number of times.
Sound RunEngine(const EngineKind& kind, const Sound& like, const Curve& cycles, const Curve& load,
                Chance& chance);

/// An electric starter that turns the engine over: a whine that the compressions drag at.
Sound Starter(int rate, double seconds, double hz, double lumps_per_second, Chance& chance);

}  // namespace tamlo::soundsmith
