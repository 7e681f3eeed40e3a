// Firings become pulses of pressure, pulses ring the exhaust, and each lets out a puff of gas.
#include "engine.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "sources.h"

namespace tamlo::soundsmith {

namespace {

// A one-pole smoother: impulses become decays of `seconds`. Round the seam of a loop.
Sound Smeared(Sound sound, double seconds) {
    const double keep = std::exp(-1.0 / (seconds * sound.rate));
    double value = 0.0;
    for (int pass = sound.loop ? 0 : 1; pass < 2; ++pass)
        for (double& sample : sound.samples) {
            const double in = sample;
            value = keep * value + in;
            if (pass == 1) sample = value;
        }
    return sound;
}

// Pressure: a sharp rise, a fall, and a longer swing below zero of the same area, so that no
// direct current is left.
Sound Pressure(const Sound& firings, double fall) {
    const double swing = 4.0 * fall;
    Sound pressure = Smeared(firings, fall);
    Sound below = Smeared(firings, swing);
    MixAt(pressure, below, 0.0, -fall / swing);
    LowPass(pressure, 3500);
    return pressure;
}

// Every firing as an impulse, by counting the cycles that have gone by.
Sound Firings(const EngineKind& kind, const Sound& like, const Curve& cycles, const Curve& load,
              Chance& chance) {
    Sound firings = like;
    Gain(firings, 0.0);
    const double step = 0.0005;
    const auto steps = static_cast<int>(like.Seconds() / step);
    double total = 0.0;
    for (int i = 0; i < steps; ++i) total += cycles(i * step) * step;
    const double fit = like.loop ? std::max(1.0, std::round(total)) / total : 1.0;
    // It begins between two firings: the seam of a loop then lies where the least happens.
    double turned = -0.5 / static_cast<double>(kind.cycle.size());
    for (int i = 0; i < steps; ++i) {
        const double time = i * step;
        const double next = turned + fit * cycles(time) * step;
        for (const Firing& firing : kind.cycle) {
            const double due = std::ceil(turned - firing.place) + firing.place;
            if (due >= next) continue;
            const double at = time + step * (due - turned) / (next - turned);
            const double jitter = 0.03 * kind.uneven * chance.Noise() / std::max(cycles(at), 1.0) /
                                  static_cast<double>(kind.cycle.size());
            AddImpulse(firings, at + jitter,
                       firing.strength * load(at) * chance.About(0.5 * kind.uneven));
        }
        turned = next;
    }
    return firings;
}

Sound Gas(const EngineKind& kind, const Sound& firings, Chance& chance) {
    Sound gate = Smeared(firings, 1.5 * kind.pulse);
    Sound gas = NoiseBand(firings, kind.gas_low_hz, kind.gas_high_hz, chance);
    for (std::size_t i = 0; i < gas.samples.size(); ++i) gas.samples[i] *= gate.samples[i];
    return gas;
}

Sound Clatter(const EngineKind& kind, const Sound& firings) {
    Sound clatter = firings;
    HighPass(clatter, kind.clatter_hz * 0.6);
    return Resonate(clatter, {{kind.clatter_hz, 12, 1.0},
                              {kind.clatter_hz * 1.53, 15, 0.7},
                              {kind.clatter_hz * 2.2, 18, 0.4}});
}

}  // namespace

std::vector<Firing> EvenFirings(std::initializer_list<double> strengths) {
    std::vector<Firing> cycle;
    for (const double strength : strengths)
        cycle.push_back(
            {static_cast<double>(cycle.size()) / static_cast<double>(strengths.size()), strength});
    return cycle;
}

Sound RunEngine(const EngineKind& kind, const Sound& like, const Curve& cycles, const Curve& load,
                Chance& chance) {
    const Sound firings = Firings(kind, like, cycles, load, chance);
    const Sound pressure = Pressure(firings, kind.pulse);
    Sound engine = Resonate(pressure, kind.exhaust, kind.direct);
    Sound gas = Resonate(Gas(kind, firings, chance), kind.exhaust, 0.5);
    MixAt(engine, gas, 0.0, kind.gas);
    if (kind.clatter > 0.0) MixAt(engine, Clatter(kind, firings), 0.0, kind.clatter);
    HighPass(engine, kind.high_pass_hz);
    Saturate(engine, kind.drive);
    HighPass(engine, kind.high_pass_hz * 0.7);
    return engine;
}

Sound Starter(int rate, double seconds, double hz, double lumps_per_second, Chance& chance) {
    Sound starter = Silence(rate, seconds);
    double turns = 0.0;
    for (std::size_t i = 0; i < starter.samples.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        const double lump = std::sin(2.0 * std::numbers::pi * lumps_per_second * time);
        const double drag = std::pow(0.5 + 0.5 * lump, 2.0);
        turns += hz * (1.0 - 0.22 * drag) * std::min(1.0, 0.5 + time / 0.15) / rate;
        double tone = 0.0;
        for (int k = 1; k <= 9; ++k)
            tone +=
                std::sin(2.0 * std::numbers::pi * turns * k) / (k == 3 || k == 5 ? 1.5 : 1.0 * k);
        const double grind = chance.Noise() * std::abs(std::sin(std::numbers::pi * turns));
        starter.samples[i] = (0.35 + 0.65 * drag) * (0.3 * tone + 0.25 * grind);
    }
    BandPass(starter, hz * 4.0, 0.5);
    FadeIn(starter, 0.02);
    FadeOut(starter, 0.08);
    NormalisePeak(starter);
    return starter;
}

}  // namespace tamlo::soundsmith
