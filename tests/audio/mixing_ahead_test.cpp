// What is mixed before it is heard, and taken back when something else is wanted.
#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "audio/mixing_rig.h"

namespace tamlo {
namespace {

/// An output that holds what it was given for a while, as a sound server does, and has it made
/// again.
class Holding {
  public:
    explicit Holding(Mixer& mixer) : mixer_(mixer) {}

    void Fill() {
        constexpr int some = 8 * longest_piece;
        std::vector<float> block(2 * some);
        ASSERT_TRUE(mixer_.MixAhead(block.data(), some));
        for (int i = 0; i < some; ++i) heard.push_back(block[2 * i]);
    }
    /// As if so many frames had been heard in all, and it were noticed a little later.
    void HearUpTo(int frames) {
        while (Ahead(frames) < 3 * longest_piece) Fill();
        mixer_.Commit(Ahead(frames) + 40);
    }
    void Rewind(int frames) {
        const std::optional<int> again = mixer_.Rewind(Ahead(frames));
        ASSERT_EQ(again, Ahead(frames));
        heard.resize(heard.size() - *again);
    }

    std::vector<float> heard;

  private:
    int Ahead(int frames) const { return static_cast<int>(heard.size()) - frames; }

    Mixer& mixer_;
};

TEST_F(MixerTest, WhatIsMadeAheadAndTakenBackIsWhatWouldHaveBeenMadeAtOnce) {
    using Acts = std::vector<std::unique_ptr<SoundBuffer>>;
    const auto act = [](Acts& sounds, unsigned what) {
        std::unique_ptr<SoundBuffer>& sound = sounds[what % sounds.size()];
        if (sound == nullptr) return;
        const auto value = static_cast<int>(what / 64);
        switch (what / 8 % 8) {
            case 0: sound->Stop(); break;
            case 1: sound->SetPan(value % 4000 - 2000); break;
            case 2: sound->SetFrequency(15000 + value % 20000); break;
            case 3: sound->SetCurrentPosition(static_cast<unsigned>(value % 2000)); break;
            case 4: sound->SetVolume(-value % 2000); break;
            case 5:
                if (value % 16 == 0) sound.reset();
                break;
            default: sound->Play(PlayMode{value % 2}); break;
        }
    };
    Mixer ahead;
    MixedSoundSystem other_system(ahead, WavesOfFolder(folder_.Path()));
    const auto other_device = other_system.CreateDevice();
    Acts sounds;
    Acts others;
    for (int i = 0; i < 8; ++i) {
        sounds.push_back(LoadTone(150 + 80 * i, 22050, 3000 + 977 * i, 0.5F));
        others.push_back(
            other_device->CreateBufferFromFile("sound" + std::to_string(i + 1), {224}));
    }
    Holding holding(ahead);
    Heard at_once;
    std::minstd_rand chance(1);
    int frame = 0;
    for (int round = 0; round < 3000; ++round) {
        for (int i = 0; i < 3; ++i) {
            const auto what = static_cast<unsigned>(chance());
            act(sounds, what);
            act(others, what);
        }
        const auto frames = static_cast<int>(1 + chance() % (round % 10 == 0 ? 4000 : 400));
        Listen(at_once, frames);
        holding.HearUpTo(frame);
        holding.Rewind(frame);
        frame += frames;
        holding.HearUpTo(frame);
        for (std::size_t i = 0; i < sounds.size(); ++i) {
            if (sounds[i] == nullptr || others[i]->GetStatus() == sounds[i]->GetStatus()) continue;
            ASSERT_EQ(others[i]->GetStatus(), status_playing) << "ended before it was heard";
        }
    }
    EXPECT_GT(Peak(at_once.left), 0.71) << "loud enough for the limiter";
    for (int i = 0; i < frame; ++i) ASSERT_NEAR(holding.heard[i], at_once.left[i], 1e-4) << i;
}

TEST_F(MixerTest, ASoundIsOverWhenItsEndIsHeardAndWhoPullsNextGoesOnFromThere) {
    const auto sound = LoadValues(stream_rate, 1, std::vector<float>(1500, 0.5F));
    const auto loop = LoadTone(300, stream_rate, 4800, 0.2F);
    sound->Play(PlayMode::once);
    loop->Play(PlayMode::looping);
    mixer_.Rewind(0);
    std::vector<float> ahead(2 * Mixer::most_ahead);
    ASSERT_TRUE(mixer_.MixAhead(ahead.data(), Mixer::most_ahead));
    EXPECT_EQ(sound->GetStatus(), status_playing);
    EXPECT_EQ(mixer_.Commit(Mixer::most_ahead - 1499), 1280) << "in whole blocks";
    EXPECT_EQ(sound->GetStatus(), status_playing);
    EXPECT_NEAR(sound->SecondsLeft(), 220.0 / stream_rate, 1e-6);

    const Heard went_on = Listen(1000);
    EXPECT_EQ(sound->GetStatus(), 0);
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(went_on.left[i], ahead[2 * (1280 + i)]) << i;
}

}  // namespace
}  // namespace tamlo
