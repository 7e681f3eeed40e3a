// Filters that colour a sound: low-pass, high-pass, bands and resonances. On a loop they ring
// round the seam.
#pragma once

#include <initializer_list>

#include "curve.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// A second-order section. Frequencies in hertz; those near or above half the rate are held below.
class Biquad {
  public:
    static Biquad LowPass(int rate, double hz, double q = 0.707);
    static Biquad HighPass(int rate, double hz, double q = 0.707);
    static Biquad BandPass(int rate, double hz, double q);  ///< gain 1 at hz
    static Biquad HighShelf(int rate, double hz, double decibels);
    static Biquad Peaking(int rate, double hz, double q, double decibels);

    double Step(double in) {
        const double out = b0_ * in + z1_;
        z1_ = b1_ * in - a1_ * out + z2_;
        z2_ = b2_ * in - a2_ * out;
        return out;
    }

    /// The whole sound, from rest; a loop is gone through twice, so that it begins as it ends.
    void Run(Sound& sound);

  private:
    Biquad(double b0, double b1, double b2, double a0, double a1, double a2)
        : b0_(b0 / a0), b1_(b1 / a0), b2_(b2 / a0), a1_(a1 / a0), a2_(a2 / a0) {}

    double b0_, b1_, b2_, a1_, a2_;
    double z1_ = 0.0, z2_ = 0.0;
};

void LowPass(Sound& sound, double hz, double q = 0.707);
void HighPass(Sound& sound, double hz, double q = 0.707);
void BandPass(Sound& sound, double hz, double q);
void Boost(Sound& sound, double hz, double q, double decibels);

/// A low-pass whose corner moves: brightness that opens and closes.
void MovingLowPass(Sound& sound, const Curve& hz);

/// One resonance of a body, a pipe or a throat.
struct Resonance {
    double hz;
    double q;
    double gain;
};

/// The sound through resonances side by side, plus `direct` of itself.
Sound Resonate(const Sound& sound, std::initializer_list<Resonance> resonances,
               double direct = 0.0);
Sound Resonate(const Sound& sound, const std::vector<Resonance>& resonances, double direct = 0.0);

/// The level over time times a curve.
void Shape(Sound& sound, const Curve& level);

}  // namespace tamlo::soundsmith
