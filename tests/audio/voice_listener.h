// A listener to the voice, in place of the sound card, and measures of what it heard.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "audio/voice/voice_speech.h"

namespace tamlo {

inline constexpr int block = 240;  ///< frames, 5 ms
inline constexpr float audible = 0.00316F;

/// What has been pulled from a voice, as the sound card would hear it.
class Listener {
  public:
    explicit Listener(VoiceSpeech& voice) : voice_(voice) {}

    /// Pulls one block, once its samples are there or will not come.
    void PullBlock(bool for_card = true) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (engine_view_->SecondsLeft() < 0.006 && voice_.SamplesComing()) {
            ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "no samples come";
            std::this_thread::yield();
        }
        PullNow(block, for_card);
    }

    void PullNow(int frames, bool for_card = true) {
        std::vector<float> stereo(2 * static_cast<std::size_t>(frames));
        voice_.Stream().Take(stereo.data(), frames, for_card);
        for (std::size_t i = 0; i < stereo.size(); i += 2) heard.push_back(stereo[i]);
    }

    /// Pulls until the voice is silent; nothing is heard after it.
    void HearOut(double most_seconds = 60) {
        const auto most = heard.size() + static_cast<std::size_t>(most_seconds * stream_rate);
        while (engine_view_->Status() == RunningState::speaking) {
            PullBlock();
            if (testing::Test::HasFatalFailure()) return;
            ASSERT_LT(heard.size(), most) << "the voice does not end";
        }
    }

    std::vector<float> heard;

  private:
    VoiceSpeech& voice_;
    std::unique_ptr<SpeechEngine> engine_view_ = voice_.CreateEngine();
};

inline double Seconds(const std::vector<float>& heard) {
    return static_cast<double>(heard.size()) / stream_rate;
}

inline double Energy(const std::vector<float>& heard) {
    double sum = 0;
    for (float sample : heard) sum += sample * sample;
    return sum;
}

/// Runs of audible sound with silences of at least 100 ms between them: first and last frame.
inline std::vector<std::pair<std::size_t, std::size_t>> Sounds(const std::vector<float>& heard) {
    std::vector<std::pair<std::size_t, std::size_t>> sounds;
    for (std::size_t i = 0; i < heard.size(); ++i) {
        if (std::abs(heard[i]) <= audible) continue;
        if (sounds.empty() || i - sounds.back().second > stream_rate / 10) sounds.push_back({i, i});
        sounds.back().second = i;
    }
    return sounds;
}

}  // namespace tamlo
