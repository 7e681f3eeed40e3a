// What the mixer makes of sounds that start, move and stop: levels, seams, clicks, limits.
#include "audio/mixing/mixer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <thread>

#include "audio/allocation_counter.h"
#include "audio/eventually.h"
#include "audio/mixing_rig.h"

namespace tamlo {
namespace {

TEST_F(MixerTest, VolumeAndPanAreExactInEachEar) {
    struct Row {
        int volume;
        int pan;
        double left;
        double right;
    };
    constexpr double silent = -100;
    const Row table[] = {
        {0, 0, 0, 0},
        {-3500, 0, -35, -35},
        {-1275, 0, -12.75, -12.75},
        {0, 1500, -15, 0},
        {0, -1500, 0, -15},
        {0, 3332, -33.32, 0},
        {0, -3332, 0, -33.32},
        {-1275, 3332, -46.07, -12.75},
        {1275, -1500, 0, -15},
        {0, 20000, silent, 0},
        {0, -20000, 0, silent},
        {-20000, 0, silent, silent},
    };
    const auto tone = LoadTone(1000, 22050, 22050, 0.7F);
    for (const Row& row : table) {
        tone->SetCurrentPosition(0);
        tone->SetVolume(row.volume);
        tone->SetPan(row.pan);
        tone->Play(PlayMode::once);
        const Heard heard = Listen(9600);
        tone->Stop();
        Listen(256);
        const double full = 20 * std::log10(0.7);
        for (const auto& [ear, wanted] :
             {std::pair{heard.left, row.left}, {heard.right, row.right}}) {
            if (wanted == silent) {
                EXPECT_EQ(Peak(ear), 0) << row.volume << ", " << row.pan;
            } else {
                EXPECT_NEAR(FitTone(ear, 1000.0 / stream_rate).level - full, wanted, 0.02)
                    << row.volume << ", " << row.pan;
            }
        }
    }
}

TEST_F(MixerTest, WhatNobodyHearsGoesOnExactlyAndFadesInWhenItIsHeard) {
    const auto loop = LoadTone(700, 22050, 5000, 0.7F);
    const auto begin = [&] {
        loop->SetFrequency(22050);
        loop->SetCurrentPosition(0);
        loop->Play(PlayMode::looping);
        Listen(100);
        loop->SetFrequency(31861);  // glides
    };
    begin();
    Listen(48000);
    const Heard listened = Listen(1000);
    loop->Stop();
    Listen(256);

    const auto short_one = LoadTone(500, 22050, 2205, 0.7F);
    short_one->Play(PlayMode::once);
    begin();
    mixer_.Pass(48000);
    EXPECT_EQ(short_one->GetStatus(), 0);
    const Heard passed = Listen(1000);
    EXPECT_EQ(passed.left[0], 0);
    for (int i = 72; i < 1000; ++i) ASSERT_EQ(passed.left[i], listened.left[i]) << i;
}

TEST_F(MixerTest, BothChannelsOfAStereoFileAreHeardInTheirEars) {
    std::vector<float> both;
    const std::vector<float> left = Tone(500, 22050, 22050);
    const std::vector<float> right = Tone(2000, 22050, 22050);
    for (std::size_t i = 0; i < left.size(); ++i) {
        both.push_back(left[i] / 2);
        both.push_back(right[i] / 2);
    }
    const auto sound = LoadValues(22050, 2, both);
    sound->SetPan(600);
    sound->Play(PlayMode::once);
    const Heard heard = Listen(9600);
    EXPECT_NEAR(FitTone(heard.left, 500.0 / stream_rate).level, -12.02, 0.05);
    EXPECT_NEAR(FitTone(heard.right, 2000.0 / stream_rate).level, -6.02, 0.05);
    EXPECT_GT(FitTone(heard.left, 500.0 / stream_rate).signal_to_noise, 60);
}

TEST_F(MixerTest, StopKeepsThePlaceAndPlayGoesOnExactly) {
    const auto whole = LoadTone(700, 22050, 22050, 0.7F);
    whole->SetFrequency(22051);
    whole->Play(PlayMode::once);
    const Heard uninterrupted = Listen(24000);
    whole->Stop();
    Listen(256);

    whole->SetCurrentPosition(0);
    whole->Play(PlayMode::once);
    Listen(10240);
    whole->Stop();
    EXPECT_EQ(whole->GetStatus(), 0);
    const Heard pause = Listen(4800);
    EXPECT_GT(Peak(pause.left), 0) << "a tail fades out";
    EXPECT_EQ(Peak({pause.left.begin() + 96, pause.left.end()}), 0);
    whole->Play(PlayMode::once);
    const Heard resumed = Listen(8000);
    for (int i = 72; i < 8000; ++i) {
        ASSERT_EQ(resumed.left[i], uninterrupted.left[10240 + i]) << i;
    }
}

TEST_F(MixerTest, LoopsHaveNoSeam) {
    // 100 whole cycles: looped without a seam they are one endless tone.
    const auto loop = LoadTone(100 * 22050.0 / 3333, 22050, 3333, 0.7F);
    for (const int frequency : {10933, 22051, 31861}) {
        loop->SetFrequency(frequency);
        loop->Play(PlayMode::looping);
        const Heard heard = Listen(96000);
        EXPECT_GT(FitTone(heard.left, 100.0 / 3333 * frequency / stream_rate).signal_to_noise, 90);
        EXPECT_EQ(loop->GetStatus(), status_playing);
        loop->Stop();
        loop->SetCurrentPosition(0);
        Listen(256);
    }
}

TEST_F(MixerTest, LoopsOfAFewFramesPlay) {
    const auto one = LoadValues(22050, 1, {0.5F});
    one->SetFrequency(200000);
    one->Play(PlayMode::looping);
    const Heard heard = Listen(1000);
    for (const float value : heard.left) ASSERT_NEAR(value, 0.5, 0.001);
}

TEST_F(MixerTest, KeepsTheAttackOfASoundFromItsStartAndFadesInMidWave) {
    const auto sound = LoadValues(stream_rate, 1, std::vector<float>(4800, 0.5F));
    sound->Play(PlayMode::once);
    EXPECT_GT(Listen(16).left[1], 0.45);
    sound->Stop();
    Listen(256);
    sound->Play(PlayMode::once);
    const Heard heard = Listen(256);
    EXPECT_LT(heard.left[1], 0.02);
    EXPECT_NEAR(heard.left[36], 0.25, 0.01);
    EXPECT_NEAR(heard.left[72], 0.5, 0.001);
}

TEST_F(MixerTest, NothingThatTheGameDoesClicks) {
    const auto tone = LoadTone(200, 22050, 220500, 0.7F);
    const std::vector<std::pair<const char*, std::function<void()>>> acts = {
        {"play", [&] { tone->Play(PlayMode::looping); }},
        {"volume", [&] { tone->SetVolume(-3500); }},
        {"volume back", [&] { tone->SetVolume(0); }},
        {"pan", [&] { tone->SetPan(10000); }},
        {"pan across", [&] { tone->SetPan(-10000); }},
        {"pan back", [&] { tone->SetPan(0); }},
        {"pitch", [&] { tone->SetFrequency(8000); }},
        {"pitch up", [&] { tone->SetFrequency(44100); }},
        {"seek", [&] { tone->SetCurrentPosition(50030); }},
        {"stop", [&] { tone->Stop(); }},
        {"resume", [&] { tone->Play(PlayMode::looping); }},
        {"stop and resume", [&] { tone->Stop(), tone->Play(PlayMode::once); }},
        {"resume and stop", [&] { tone->Play(PlayMode::once), tone->Stop(); }},
        {"stop, wind, play",
         [&] { tone->Stop(), tone->SetCurrentPosition(77), tone->Play(PlayMode::once); }},
    };
    Heard heard;
    for (const auto& [what, act] : acts) {
        heard = {};
        Listen(heard, 1111);
        act();
        Listen(heard, 1111);
        EXPECT_LT(Roughness(heard.left), click) << what;
        EXPECT_LT(Roughness(heard.right), click) << what;
    }
    EXPECT_GT(Peak(heard.left), 0.69);
}

TEST_F(MixerTest, ReleasingASoundFadesItOut) {
    auto tone = LoadTone(200, 22050, 22050, 0.7F);
    tone->Play(PlayMode::once);
    Heard heard = Listen(1100);
    tone.reset();
    Listen(heard, 1100);
    EXPECT_LT(Roughness(heard.left), click);
    EXPECT_EQ(heard.left.back(), 0);
}

TEST_F(MixerTest, SmallStepsOfAMovementMakeNoZipperNoise) {
    const auto tone = LoadTone(200, 22050, 220500, 0.7F);
    tone->Play(PlayMode::looping);
    Heard heard;
    for (int pan = 3332; pan > -3332; pan -= 50) {
        tone->SetPan(pan);
        Listen(heard, 3360);
    }
    EXPECT_LT(Roughness(heard.left), 0.0012);
    EXPECT_LT(Roughness(heard.right), 0.0012);
}

TEST_F(MixerTest, ManySoundsNeverClipAndFewAreLeftAlone) {
    std::vector<std::unique_ptr<SoundBuffer>> sounds;
    std::vector<float> sum(4800, 0.0F);
    for (int i = 0; i < 64; ++i) {
        sounds.push_back(LoadTone(100 + 37 * i, 22050, 22050, 0.4F));
        sounds.back()->SetFrequency(22051);
        sounds.back()->Play(PlayMode::looping);
        const Heard heard = Listen(4800);
        for (const float value : heard.left) ASSERT_LT(std::abs(value), 1.0F);
        EXPECT_GT(Peak(heard.left), i < 2 ? 0.39 : 0.7);
    }
    sounds.resize(1);
    Listen(stream_rate);
    const Heard alone = Listen(9600);
    EXPECT_GT(FitTone(alone.left, 100.0 * 22051 / 22050 / stream_rate).signal_to_noise, 85);
    EXPECT_NEAR(Peak(alone.left), 0.4, 0.001);
}

TEST(Limiter, IsExactlyTransparentBelowItsThresholdAndSmoothAbove) {
    Limiter limiter;
    std::vector<float> quiet = Tone(300, stream_rate, 9600);
    for (float& value : quiet) value *= 0.707F;
    std::vector<float> same = quiet;
    limiter.Process(same.data(), 4800);
    EXPECT_EQ(same, quiet);

    std::vector<float> loud = Tone(300, stream_rate, 9600);
    for (float& value : loud) value *= 2;
    limiter.Process(loud.data(), 4800);
    EXPECT_LT(Peak(loud), 0.842);
    limiter.Process(std::vector<float>(stream_rate * 2, 0.0F).data(), stream_rate);
    same = quiet;
    limiter.Process(same.data(), 4800);
    EXPECT_EQ(same, quiet) << "a loud moment is forgotten";
}

TEST_F(MixerTest, MixesAttachedSourcesAndKnowsHowLongTheyAreQuiet) {
    const auto sound = LoadValues(stream_rate, 1, std::vector<float>(4800, 0.4F));
    sound->Play(PlayMode::looping);
    Listen(256);
    Constant source;
    mixer_.Attach(source);
    EXPECT_NEAR(Listen(512).right.back(), 0.65, 0.001);
    EXPECT_EQ(mixer_.FramesOfQuiet(), 0);
    source.level = 0;
    Listen(1000);
    EXPECT_EQ(mixer_.FramesOfQuiet(), 1000);
    mixer_.Detach(source);
    source.level = 0.25F;
    EXPECT_NEAR(Listen(512).right.back(), 0.4, 0.001);
}

TEST_F(MixerTest, TheCallbackNeitherAllocatesNorFrees) {
    std::vector<std::unique_ptr<SoundBuffer>> sounds;
    for (int i = 0; i < 70; ++i) sounds.push_back(LoadTone(300, 22050, 300 + 100 * i, 0.1F));
    std::vector<float> block(512);
    for (int round = 0; round < 50; ++round) {
        for (std::size_t i = 0; i < sounds.size(); ++i) {
            const int number = static_cast<int>(i) + round;
            sounds[i]->SetPan(number * 7);
            sounds[i]->SetFrequency(20000 + 99 * number);
            if (number % 5 == 0) sounds[i]->Play(PlayMode{number % 2});
            if (number % 11 == 0) sounds[i]->Stop();
        }
        sounds.pop_back();
        const long before = AllocationsOfThisThread();
        if (round < 25) {
            mixer_.Mix(block.data(), 256);
        } else {
            mixer_.Rewind(256);
            mixer_.MixAhead(block.data(), 256);
            mixer_.Commit(512);
        }
        ASSERT_EQ(AllocationsOfThisThread(), before) << round;
    }
}

TEST_F(MixerTest, StandsAGameThreadThatIsBusyWhileItIsPulled) {
    std::atomic<bool> done = false;
    std::atomic<int> broken = 0;
    std::thread puller([&] {
        std::vector<float> block(512);
        for (int round = 0; !done; ++round) {
            if (round / 1000 % 2 == 0) {
                mixer_.Mix(block.data(), 256);
            } else {
                mixer_.MixAhead(block.data(), 256);
                mixer_.Commit(300);
                if (round % 7 == 0) mixer_.Rewind(999);
            }
            for (const float value : block) broken += !(std::abs(value) < 1);
        }
    });
    const std::unique_ptr<SoundBuffer> kept = LoadTone(440, 22050, 30, 0.5F);
    for (int i = 0; i < 2000; ++i) {
        auto sound = Load("sound1");
        sound->SetFrequency(5000 + i * 20);
        sound->Play(PlayMode{i % 2});
        kept->SetCurrentPosition(static_cast<unsigned>(i % 30));
        kept->Play(PlayMode{(i / 3) % 2});
        kept->SetPan(i);
        if (i % 2 == 0) kept->Stop();
        if (i % 50 == 0) std::this_thread::yield();
    }
    kept->Play(PlayMode::once);
    EXPECT_TRUE(Eventually([&] { return kept->GetStatus() == 0; }));
    done = true;
    puller.join();
    EXPECT_EQ(broken, 0);
}

}  // namespace
}  // namespace tamlo
