// The ring that the page's worklet reads: what is heard when the game changes its mind.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "audio/mixing_signals.h"
#include "audio/output/mixed_sound.h"
#include "audio/output/tap.h"
#include "web/sound/ring_filler.h"

namespace tamlo {
namespace {

constexpr int quantum = SharedRing::quantum;

class RingTest : public testing::Test {
  protected:
    std::unique_ptr<SoundBuffer> LoadTone(double hertz, float level) {
        std::vector<float> tone = Tone(hertz, stream_rate, stream_rate);
        for (float& value : tone) value *= level;
        wave_ = WaveBytes(stream_rate, 1, tone);
        return device_->CreateBufferFromFile(std::to_string(hertz), {224});
    }

    /// As the worklet does, so many frames at once.
    void Take(int frames) {
        for (; frames > 0; frames -= quantum) {
            const auto ready = static_cast<int>(ring_.written - ring_.taken);
            for (int i = 0; i < quantum; ++i) {
                const std::uint32_t at = (ring_.taken + static_cast<std::uint32_t>(i));
                heard_.push_back(i < ready ? ring_.samples[2 * (at % SharedRing::frames)] : 0.0F);
            }
            missing_ += std::max(quantum - std::max(ready, 0), 0);
            ring_.taken += static_cast<std::uint32_t>(std::clamp(ready, 0, quantum));
            ring_.asked += quantum;
        }
    }
    /// Largest second difference since a frame; 0.03 is a click.
    double Roughness(std::size_t from = 0) const {
        double most = 0;
        for (std::size_t i = from + 2; i < heard_.size(); ++i) {
            most = std::max<double>(most, std::abs(heard_[i] - 2 * heard_[i - 1] + heard_[i - 2]));
        }
        return most;
    }

    std::string wave_;
    std::shared_ptr<RingBell> bell_ = std::make_shared<RingBell>();
    Mixer mixer_{BestInstructions(), bell_};
    MixedSoundSystem system_{mixer_, [this](const std::string&) { return wave_; }};
    std::unique_ptr<SoundDevice> device_ = system_.CreateDevice();
    std::unique_ptr<SharedRing> ring_owner_ = std::make_unique<SharedRing>();
    SharedRing& ring_ = *ring_owner_;
    Tap tap_{mixer_};
    RingFiller filler_{ring_, tap_, *bell_};
    std::vector<float> heard_;
    int missing_ = 0;
};

TEST_F(RingTest, AnEighthOfASecondIsAhead) {
    filler_.Turn();
    EXPECT_NEAR(static_cast<int>(ring_.written - ring_.taken), stream_rate / 8, 256);
    Take(4000);
    filler_.Turn();
    EXPECT_NEAR(static_cast<int>(ring_.written - ring_.taken), stream_rate / 8, 256);
    EXPECT_EQ(missing_, 0);
}

TEST_F(RingTest, ASoundThatBeginsIsHeardAfterTheNextQuantum) {
    const auto tone = LoadTone(440, 0.5F);
    filler_.Turn();
    Take(1024);
    filler_.Turn();
    tone->Play(PlayMode::once);
    filler_.Turn();
    Take(1024);
    std::size_t first = 1024;
    while (first < heard_.size() && heard_[first] == 0) ++first;
    EXPECT_LE(first - 1024, 2U * quantum);
    EXPECT_GE(first - 1024, 1U * quantum);
}

TEST_F(RingTest, NoChangeClicksHoweverMuchIsTakenAtOnce) {
    const auto tone = LoadTone(200, 0.5F);
    const auto silent = LoadTone(300, 0.0F);
    std::minstd_rand chance(1);
    tone->Play(PlayMode::looping);
    filler_.Turn();
    Take(4096);
    filler_.Turn();
    for (int round = 0; round < 1500; ++round) {
        if (chance() % 2 == 0) {
            silent->SetCurrentPosition(0);
            silent->Play(PlayMode::once);
        } else {
            silent->Stop();
        }
        if (chance() % 3 != 0) filler_.Turn();
        Take(quantum * static_cast<int>(chance() % 10));
        filler_.Turn();
    }
    EXPECT_GT(ring_.changes, 500U);
    EXPECT_LT(Roughness(1024), 0.03);
    EXPECT_EQ(missing_, 0);
}

TEST_F(RingTest, AToneThatStopsFadesOutWithoutAClick) {
    const auto tone = LoadTone(200, 0.5F);
    for (int round = 0; round < 100; ++round) {
        tone->SetCurrentPosition(0);
        tone->Play(PlayMode::looping);
        filler_.Turn();
        Take(quantum * (8 + round % 7));
        tone->Stop();
        filler_.Turn();
        Take(quantum * (3 + round % 5));
    }
    EXPECT_LT(Roughness(), 0.05);
}

TEST_F(RingTest, WhatNobodyTookIsNotHeardLater) {
    const auto tone = LoadTone(200, 0.5F);
    tone->Play(PlayMode::looping);
    filler_.Turn();
    Take(1024);
    filler_.Turn();
    // The browser takes nothing for a while, and a clock lets the time pass.
    tap_.PutClockInCharge();
    filler_.Turn();
    EXPECT_EQ(ring_.written, ring_.taken);
    const std::size_t before = heard_.size();
    Take(quantum);
    for (int i = before; i < static_cast<int>(heard_.size()); ++i) EXPECT_EQ(heard_[i], 0);
    // It goes on: silence at first, then what is to be heard now.
    for (int i = 0; i < 30; ++i) {
        filler_.Turn();
        Take(512);
    }
    EXPECT_EQ(tap_.InCharge(), Output::card);
    EXPECT_NE(heard_.back(), 0);
}

TEST_F(RingTest, PositionsWrap) {
    for (std::atomic<std::uint32_t>* position : {&ring_.taken, &ring_.written})
        *position = 0U - 5000U;
    const auto tone = LoadTone(200, 0.5F);
    tone->Play(PlayMode::looping);
    for (int i = 0; i < 40; ++i) {
        filler_.Turn();
        Take(512);
        tone->SetVolume(i % 2);
    }
    EXPECT_EQ(missing_, 0);
    EXPECT_LT(Roughness(1024), 0.03);
}

}  // namespace
}  // namespace tamlo
