// Test signals and measurements for the mixing tests.
#pragma once

#include <string>
#include <vector>

#include "audio/mixing/source.h"

namespace tamlo {

/// A source without a state.
class StatelessSource : public Source {
  public:
    void BeginBlock(bool /*heard*/) noexcept override {}
    void SaveState(int /*slot*/) noexcept override {}
    void RestoreState(int /*slot*/) noexcept override {}
    void Commit(int /*slot*/, int /*frames*/) noexcept override {}
    void RingOnChange(ChangeBell* /*bell*/) noexcept override {}
};

/// The same level for ever.
class Constant final : public StatelessSource {
  public:
    void AddTo(float* stereo, int frames) noexcept override {
        for (int i = 0; i < 2 * frames; ++i) stereo[i] += level;
    }
    float level = 0.25F;
};

/// A sine of amplitude 1.
std::vector<float> Tone(double hertz, int rate, int count);

/// What a least-squares fit of a sine finds in a signal.
struct ToneFit {
    double level = 0;            ///< decibels relative to amplitude 1
    double signal_to_noise = 0;  ///< decibels; everything but the sine is noise
};

/// `frequency` in cycles a sample.
ToneFit FitTone(const std::vector<float>& signal, double frequency);

/// A whole 16-bit wave file of values from -1 to 1.
std::string WaveBytes(int rate, int channels, const std::vector<float>& values);

}  // namespace tamlo
