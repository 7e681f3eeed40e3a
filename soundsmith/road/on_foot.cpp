// On foot, on paws, in the air.
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "filters.h"
#include "road.h"
#include "vocabulary/bodies.h"
#include "vocabulary/instruments.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "vocabulary/voices.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

Sound MarchingBand(Brief brief) {
    Sound band = brief.Blank();
    const double beat = brief.seconds / 6.0;
    const double lead = 0.3 * beat;  // the loop begins in the rest before the first beat
    constexpr std::array tune{"f4", "a4", "c5", "a4", "bb4", "g4"};
    constexpr std::array upper{"c5", "f5", "a5", "f5", "g5", "e5"};
    constexpr std::array bass{"f2", "c3", "f2", "c3", "c2", "c3"};
    for (std::size_t i = 0; i < 6; ++i) {
        const double at = lead + beat * static_cast<double>(i);
        MixAt(band, BassDrum(brief.rate, brief.chance), at, i % 2 == 0 ? 0.65 : 0.45);
        for (const double stroke : {0.0, 0.5, 0.75})
            MixAt(band, SnareDrum(brief.rate, 0.09, brief.chance), at + stroke * beat,
                  stroke == 0.0 ? 0.5 : 0.32);
        MixAt(band, Tuba(brief.rate, NoteHz(bass[i]), 0.4 * beat, brief.chance), at, 0.4);
        for (const auto* voice : {&tune, &upper}) {
            MixAt(band, Brass(brief.rate, NoteHz((*voice)[i]), 0.42 * beat, brief.chance), at,
                  0.42);
            MixAt(band, Brass(brief.rate, NoteHz((*voice)[i]), 0.2 * beat, brief.chance),
                  at + 0.5 * beat, 0.36);
        }
        if (i % 2 == 0) MixAt(band, Cymbal(brief.rate, 0.5, brief.chance), at, 0.12);
    }
    AddRoom(band, street_room);
    return band;
}

Sound Jogger(Brief brief) {
    Sound jogger = brief.Blank();
    const double stride = brief.seconds / 4.0;
    for (int i = 0; i < 4; ++i)
        MixAt(jogger, Step(RunningShoe(), brief.rate, i % 2 == 0 ? 1.0 : 0.85, brief.chance),
              (i + 0.35) * stride);
    // In over two steps, out over two.
    MixAt(jogger, Breath(brief.rate, true, 1.55 * stride, brief.chance), 0.35 * stride, 0.4);
    MixAt(jogger, Breath(brief.rate, false, 1.7 * stride, brief.chance), 2.25 * stride, 0.65);
    return jogger;
}

Sound RunningDog(Brief brief) {
    Sound dog = brief.Blank();
    MixAt(dog, Bark(brief.rate, 520, 0.2, brief.chance), 0.1);
    MixAt(dog, Bark(brief.rate, 580, 0.17, brief.chance), 0.42, 0.9);
    MixAt(dog, Bark(brief.rate, 490, 0.25, brief.chance), 1.0);
    const Body claw{
        {{2100, 0.015, 0.7}, {3600, 0.012, 0.6}, {520, 0.02, 1.0}}, {0.8, 0.008, 1500, 5000}, 0.1};
    const double gallop = brief.seconds / 5.0;
    for (int i = 0; i < 5; ++i)
        for (const double paw : {0.12, 0.3, 0.55, 0.72})
            MixAt(dog, Hit(claw, brief.rate, brief.chance.Between(0.6, 1.0), brief.chance),
                  (i + paw) * gallop, 0.35);
    AddRoom(dog, {14, 0.5, 2600, 0.15});
    return dog;
}

Sound Helicopter(Brief brief) {
    // Four slaps of the blades, exactly even around the loop, over a turbine of whole waves.
    Sound rotor = brief.Blank();
    const Body air{
        {{92, 0.1, 0.6}, {143, 0.09, 1.0}, {226, 0.07, 0.8}}, {0.0, 0.0, 0.0, 0.0}, 0.01};
    for (int blade = 0; blade < 4; ++blade) {
        const double at = brief.seconds * (blade + 0.3) / 4.0;
        Sound slap = NoiseBurst(brief.rate, 0.012, 0.055, 180, 1800, brief.chance);
        MixAt(slap, NoiseBurst(brief.rate, 0.003, 0.025, 900, 4500, brief.chance), 0.006, 0.8);
        MixAt(rotor, slap, at, 1.6);
        MixAt(rotor, Hit(air, brief.rate, 1.0, brief.chance), at, 0.3);
    }
    for (const auto& [waves, level] :
         {std::pair{560.0, 0.06}, {843.0, 0.05}, {1127.0, 0.025}, {75.0, 0.08}}) {
        const double hz = waves / brief.seconds;
        for (std::size_t i = 0; i < rotor.samples.size(); ++i)
            rotor.samples[i] +=
                level * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(i) / brief.rate);
    }
    MixAt(rotor, NoiseBand(rotor, 300, 3000, brief.chance), 0.0, 0.08);
    return rotor;
}

}  // namespace tamlo::soundsmith
