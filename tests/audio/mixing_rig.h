// A mixer with a folder of wave files, pulled by the test, and what the ears make of it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "audio/mixing/mixer.h"
#include "audio/mixing_signals.h"
#include "audio/output/mixed_sound.h"
#include "temporary_folder.h"

namespace tamlo {

struct Heard {
    std::vector<float> left;
    std::vector<float> right;
};

class MixerTest : public testing::Test {
  protected:
    std::unique_ptr<SoundBuffer> Load(const std::string& name) {
        return device_->CreateBufferFromFile(name, {224});
    }
    std::unique_ptr<SoundBuffer> LoadTone(double hertz, int rate, int count, float level) {
        std::vector<float> tone = Tone(hertz, rate, count);
        for (float& value : tone) value *= level;
        return LoadValues(rate, 1, tone);
    }
    std::unique_ptr<SoundBuffer> LoadValues(int rate, int channels,
                                            const std::vector<float>& values) {
        const std::string name = "sound" + std::to_string(++sounds_);
        folder_.Write(name + ".wav", WaveBytes(rate, channels, values));
        return Load(name);
    }

    void Listen(Heard& heard, int frames) {
        while (frames > 0) {
            std::vector<float> block(512, 99.0F);
            const int count = std::min(frames, 256);
            mixer_.Mix(block.data(), count);
            for (int i = 0; i < count; ++i) {
                heard.left.push_back(block[2 * i]);
                heard.right.push_back(block[2 * i + 1]);
            }
            frames -= count;
        }
    }
    Heard Listen(int frames) {
        Heard heard;
        Listen(heard, frames);
        return heard;
    }

    TemporaryFolder folder_;
    Mixer mixer_;
    MixedSoundSystem system_{mixer_, WavesOfFolder(folder_.Path())};
    std::unique_ptr<SoundDevice> device_ = system_.CreateDevice();
    int sounds_ = 0;
};

/// Largest second difference: 0.0007 for a full tone of 200 Hz, up to 1 for a click.
inline double Roughness(const std::vector<float>& signal) {
    double most = 0;
    for (std::size_t i = 2; i < signal.size(); ++i) {
        most = std::max<double>(most, std::abs(signal[i] - 2 * signal[i - 1] + signal[i - 2]));
    }
    return most;
}
inline constexpr double click = 0.03;

inline double Peak(const std::vector<float>& signal) {
    float peak = 0;
    for (const float value : signal) peak = std::max(peak, std::abs(value));
    return peak;
}

}  // namespace tamlo
