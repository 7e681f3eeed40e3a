// Harmonic tones through trumpets and loudspeakers.
#include "horns.h"

#include "filters.h"
#include "sources.h"

namespace tamlo::soundsmith {

Sound Horn(int rate, const HornKind& kind, double seconds, Chance& chance) {
    Sound horn = Silence(rate, seconds);
    for (const double note : kind.notes) {
        const double hz = note * chance.About(0.003);
        // The pitch climbs into place as the pressure builds up, and sags as it goes.
        std::vector<Curve::Point> pitch{{0.0, hz * 0.96}, {kind.rise, hz}};
        for (double t = kind.rise + 0.05; t < seconds - 0.1; t += 0.09)
            pitch.push_back({t, hz * chance.About(0.002)});
        pitch.push_back({seconds - 0.06, hz});
        pitch.push_back({seconds, hz * 0.97});
        MixAt(horn, Tone(rate, seconds, Curve(pitch), FallingHarmonics(24, kind.fall_db)), 0.0,
              1.0 / static_cast<double>(kind.notes.size()));
    }
    horn = Resonate(horn, {{kind.throat_hz, 1.2, 1.0}, {kind.throat_hz * 0.4, 1.0, 0.6}}, 0.3);
    Shape(horn, {{0.0, 0.0}, {kind.rise, 1.0}, {seconds - 0.07, 0.95}, {seconds, 0.0}});
    NormalisePeak(horn);
    Saturate(horn, 1.5);
    return horn;
}

Sound Siren(int rate, double seconds, const Curve& hz) {
    Sound source = Tone(rate, seconds, hz, {1.0, 0.25, 0.5, 0.15, 0.3, 0.1, 0.2, 0.08});
    Sound siren = Resonate(source, {{1100, 1.5, 1.0}, {2300, 2.0, 0.9}}, 0.35);
    NormalisePeak(siren);
    Saturate(siren, 1.5);
    return siren;
}

Sound BulbHonk(int rate, double hz, double seconds, Chance& chance) {
    // The reed sounds while the bulb is pressed, its pitch bending up and down again.
    const Curve pitch{{0.0, 0.88 * hz}, {0.04, hz}, {0.6 * seconds, hz}, {seconds, 0.82 * hz}};
    Sound reed = Tone(rate, seconds, pitch, FallingHarmonics(28, -1.5));
    MixAt(reed, NoiseBurst(rate, 0.01, seconds, 600, 5000, chance), 0.0, 0.4);
    Sound honk = Resonate(reed, {{560, 3, 0.8}, {1150, 4, 1.0}, {2500, 4, 0.5}}, 0.06);
    Shape(honk, {{0.0, 0.0}, {0.025, 1.0}, {0.7 * seconds, 0.8}, {seconds, 0.0}});
    NormalisePeak(honk);
    return honk;
}

}  // namespace tamlo::soundsmith
