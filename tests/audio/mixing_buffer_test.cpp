// Buffers made from wave files: how long they take, what they keep, and files that are not there.
#include <gtest/gtest.h>

#include <limits>

#include "audio/mixing_rig.h"

namespace tamlo {
namespace {

class BufferTest : public MixerTest {};

TEST_F(BufferTest, ASoundTakesItsFramesAtItsFrequencyAndStandsAtItsStartAgain) {
    const auto sound = LoadTone(400, 22050, 22050, 0.5F);
    for (const int frequency : {8000, 10933, 22051, 31861, 44100, 200000}) {
        sound->SetFrequency(frequency);
        for (int time = 0; time < 2; ++time) {
            sound->Play(PlayMode::once);
            EXPECT_NEAR(sound->SecondsLeft(), 22050.0 / frequency, 1e-9);
            int frames = 0;
            while (sound->GetStatus() == status_playing && frames < 200000) {
                Listen(8);
                frames += 8;
            }
            const double exact = 22050.0 * stream_rate / frequency;
            EXPECT_GE(frames, exact) << frequency;
            EXPECT_LT(frames, exact + 9) << frequency;
            EXPECT_EQ(sound->SecondsLeft(), 0);
            const Heard tail = Listen(480);
            EXPECT_EQ(Peak({tail.left.begin() + 96, tail.left.end()}), 0);
        }
    }
}

TEST_F(BufferTest, RestsBetweenWholeAndPlayedPart) {
    const auto sound = LoadTone(400, 24000, 24000, 0.5F);
    EXPECT_EQ(sound->GetFrequency(), 24000);
    EXPECT_EQ(sound->SecondsLeft(), 0);
    sound->SetCurrentPosition(12000);
    sound->Play(PlayMode::once);
    Listen(12000);
    EXPECT_NEAR(sound->SecondsLeft(), 0.25, 0.001);
    sound->SetFrequency(48000);
    EXPECT_NEAR(sound->SecondsLeft(), 0.125, 0.001);
    sound->SetCurrentPosition(24000);
    Listen(256);
    EXPECT_NEAR(sound->SecondsLeft(), 0.5, 0.01) << "a position past the end is the start";
    sound->Play(PlayMode::looping);
    EXPECT_EQ(sound->SecondsLeft(), std::numeric_limits<double>::infinity());
    Listen(stream_rate);
    sound->Play(PlayMode::once);
    Listen(stream_rate / 2 + 256);
    EXPECT_EQ(sound->GetStatus(), 0) << "a loop played once ends at its end";
}

TEST_F(BufferTest, ASoundWithoutAFileIsOverAtOnce) {
    folder_.Write("damaged.wav", "RIFFxxxxWAVEfmt ");
    folder_.Write("empty.wav", WaveBytes(22050, 1, {}));
    for (const char* name : {"missing", "damaged", "empty", "../missing", "."}) {
        const auto sound = Load(name);
        sound->SetCurrentPosition(100);
        sound->SetVolume(-100);
        sound->SetPan(100);
        EXPECT_GT(sound->GetFrequency(), 0) << name;
        sound->SetFrequency(sound->GetFrequency() + 1);
        for (const PlayMode mode : {PlayMode::once, PlayMode::looping}) {
            sound->Play(mode);
            EXPECT_EQ(sound->GetStatus(), 0) << name;
            EXPECT_EQ(sound->SecondsLeft(), 0) << name;
        }
        sound->Stop();
    }
    EXPECT_EQ(Peak(Listen(512).left), 0);
    folder_.Write("missing.wav", WaveBytes(22050, 1, Tone(500, 22050, 2000)));
    const auto found = Load("missing");
    found->Play(PlayMode::once);
    EXPECT_EQ(found->GetStatus(), status_playing) << "the file may have come meanwhile";
}

TEST_F(BufferTest, BuffersOfOneFileAreIndependentAndOutliveIt) {
    auto first = LoadTone(500, 22050, 22050, 0.4F);
    folder_.Write("sound1.wav", "gone");
    const auto second = Load("sound1");
    second->SetFrequency(44100);
    first->Play(PlayMode::once);
    second->Play(PlayMode::once);
    first.reset();
    Listen(256);
    EXPECT_NEAR(FitTone(Listen(4800).left, 1000.0 / stream_rate).level, -7.96, 0.05);
}

// The game beeps twice and speaks, a tenth of a second apart: three sounds, not one.
TEST_F(BufferTest, BeepsAtOnceAndLeavesAGapBeforeTheNext) {
    constexpr std::ptrdiff_t gap = stream_rate * 4 / 100;
    for (const int beep : {1, 2}) {
        SCOPED_TRACE(beep);
        system_.Beep();
        const std::vector<float> heard = Listen(stream_rate / 10).left;
        EXPECT_NEAR(Peak(heard), 0.25, 0.01);
        EXPECT_LT(Roughness(heard), click);
        EXPECT_EQ(Peak({heard.end() - gap, heard.end()}), 0);
    }
    system_.Beep();
    Listen(1000);
    system_.Beep();
    EXPECT_LT(Roughness(Listen(stream_rate / 10).left), click) << "cut by the next";
}

}  // namespace
}  // namespace tamlo
