// The queue of speech samples: what is taken, dropped, faded and scaled, sample for sample.
#include "audio/voice/speech_stream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "audio/mixing/mixer.h"

namespace tamlo {
namespace {

/// The left channel of what the stream adds to `frames` frames of silence.
std::vector<float> Pull(SpeechStream& stream, int frames) {
    std::vector<float> stereo(2 * static_cast<std::size_t>(frames));
    stream.Take(stereo.data(), frames, true);
    std::vector<float> left;
    for (std::size_t i = 0; i < stereo.size(); i += 2) {
        EXPECT_EQ(stereo[i], stereo[i + 1]);
        left.push_back(stereo[i]);
    }
    return left;
}

void Write(SpeechStream& stream, std::size_t count, float value) {
    stream.Put(std::vector<float>(count, value));
    stream.Publish();
}

TEST(SpeechStream, HandsOverEverySampleOnceAndInOrder) {
    SpeechStream stream;
    float next_in = 0;
    float next_out = 0;
    for (int round = 0; round < 2000; ++round) {
        std::vector<float> some(static_cast<std::size_t>(1 + round * 7 % 441));
        for (float& sample : some) sample = next_in++;
        stream.Put(some);
        stream.Publish();
        for (float sample : Pull(stream, static_cast<int>(some.size()))) {
            ASSERT_EQ(sample, next_out++);
        }
    }
    EXPECT_GT(next_out, 2 * SpeechStream::capacity);  // Round the ring more than twice.
    EXPECT_EQ(Pull(stream, 3), (std::vector<float>{0, 0, 0}));
}

TEST(SpeechStream, AddsToWhatIsThereAndOnlyWhatWasCommitted) {
    SpeechStream stream;
    stream.Put(std::vector<float>(10, 0.25F));
    EXPECT_EQ(stream.Left(), 0);
    EXPECT_EQ(Pull(stream, 1)[0], 0.0F);
    stream.Retract();
    Write(stream, 2, 0.5F);
    EXPECT_EQ(stream.Left(), 2);
    float stereo[6] = {1, -1, 1, -1, 1, -1};
    stream.Take(stereo, 3, true);
    EXPECT_THAT(stereo, testing::ElementsAre(1.5F, -0.5F, 1.5F, -0.5F, 1.0F, -1.0F));
    EXPECT_EQ(stream.Left(), 0);
}

TEST(SpeechStream, ADropFadesAndLeavesTheNextTextWhole) {
    for (int block : {1, 17, 96, 256, 4096}) {
        SpeechStream stream;
        Write(stream, 5000, 0.5F);
        Pull(stream, 1000);
        stream.Drop();
        EXPECT_EQ(stream.Left(), 0);
        Write(stream, 3000, -0.25F);
        EXPECT_EQ(stream.Left(), 3000);

        std::vector<float> heard;
        while (heard.size() < 4096) {
            for (float sample : Pull(stream, block)) heard.push_back(sample);
        }
        // The tail falls without a step from 0.5 on, over the first samples of the next text.
        float before = 0.5F;
        for (std::size_t i = 0; i < SpeechStream::tail_frames; ++i) {
            float tail = heard[i] + 0.25F;
            ASSERT_LT(tail, before) << block;
            ASSERT_GT(tail, before - 0.01F) << block;
            before = tail;
        }
        for (std::size_t i = SpeechStream::tail_frames; i < 3000; ++i) ASSERT_EQ(heard[i], -0.25F);
        ASSERT_EQ(heard[3000], 0.0F);
        ASSERT_EQ(stream.Left(), 0);
    }
}

TEST(SpeechStream, ManyDropsBetweenTwoBlocksLeaveTheLastText) {
    SpeechStream stream;
    for (int i = 0; i < 3; ++i) {
        ASSERT_GE(stream.Room(), SpeechStream::most_ahead);
        Write(stream, SpeechStream::most_ahead, 0.125F);
        EXPECT_LE(stream.Room(), 0);
        stream.Drop();
    }
    Write(stream, 100, 0.5F);
    auto heard = Pull(stream, 200);
    EXPECT_EQ(heard[99], 0.5F);
    EXPECT_EQ(heard[100], 0.0F);
    EXPECT_EQ(stream.Left(), 0);
}

TEST(SpeechStream, ASecondDropDuringATailDoesNotClick) {
    SpeechStream stream;
    Write(stream, 1000, 0.5F);
    float last = Pull(stream, 100).back();
    auto step_after = [&](int frames) {
        float largest = 0;
        for (float sample : Pull(stream, frames)) {
            largest = std::max(largest, std::abs(sample - last));
            last = sample;
        }
        return largest;
    };
    stream.Drop();
    EXPECT_LT(step_after(20), 0.01F);
    stream.Drop();
    EXPECT_LT(step_after(200), 0.01F);
    EXPECT_EQ(last, 0.0F);
}

TEST(SpeechStream, VolumeGlidesWhileSpeakingAndIsSetBetween) {
    SpeechStream stream;
    Write(stream, 4000, 1.0F);
    Pull(stream, 100);
    stream.SetGain(0.25F);
    auto glide = Pull(stream, 1000);
    EXPECT_GT(glide.front(), 0.99F);
    EXPECT_EQ(glide.back(), 0.25F);
    EXPECT_EQ(glide[480], 0.25F);  // Within 10 ms.
    for (std::size_t i = 1; i < glide.size(); ++i) ASSERT_LT(glide[i - 1] - glide[i], 0.003F);

    stream.Drop();
    stream.SetGain(1.0F);
    Pull(stream, 200);
    Write(stream, 10, 0.5F);
    EXPECT_EQ(Pull(stream, 1)[0], 0.5F);
}

TEST(SpeechStream, RingsWhenItsEndIsTakenAndWhenTheMakerAsked) {
    SpeechStream stream;
    constexpr auto at_once = std::chrono::microseconds(0);
    auto rang = [&](Wakeup& bell) {
        const auto start = std::chrono::steady_clock::now();
        bell.SleepFor(std::chrono::milliseconds(1000));
        return std::chrono::steady_clock::now() - start < std::chrono::milliseconds(900);
    };
    Write(stream, 1000, 0.5F);
    stream.RingWhenDownTo(600);
    Pull(stream, 399);
    stream.woken.SleepFor(at_once);
    Pull(stream, 1);
    EXPECT_TRUE(rang(stream.woken));
    Pull(stream, 599);
    stream.ended.SleepFor(at_once);
    Pull(stream, 5);
    EXPECT_TRUE(rang(stream.ended));
    stream.RingWhenDownTo(0);
    EXPECT_TRUE(rang(stream.woken));  // It was so already.
}

class SpeechAhead : public testing::Test {
  protected:
    void SetUp() override { mixer_.Attach(stream_); }
    void TearDown() override { mixer_.Detach(stream_); }

    bool Rang() { return std::exchange(bell_->rung, false); }
    /// The left channel of what is made, from so many frames before the end of what was.
    std::vector<float> Ahead(int taken_back) {
        EXPECT_EQ(mixer_.Rewind(taken_back), taken_back);
        std::vector<float> stereo(2 * 4096);
        EXPECT_TRUE(mixer_.MixAhead(stereo.data(), 4096));
        std::vector<float> left;
        for (std::size_t i = 0; i < stereo.size(); i += 2) left.push_back(stereo[i]);
        return left;
    }

    struct Bell final : ChangeBell {
        void Ring() noexcept override { rung = true; }
        bool rung = false;
    };
    SpeechStream stream_;
    const std::shared_ptr<Bell> bell_ = std::make_shared<Bell>();
    Mixer mixer_{BestInstructions(), bell_};
};

TEST_F(SpeechAhead, ANewTextTakesThePlaceOfTheSilenceThatWasMade) {
    Ahead(0);
    EXPECT_FALSE(Rang());
    for (int written = 0; written < 3000; written += 1000) {
        std::vector<float> ramp(1000);
        for (int i = 0; i < 1000; ++i) ramp[i] = static_cast<float>(written + i + 1) / 8192;
        stream_.Put(ramp);
        stream_.Publish();
        EXPECT_TRUE(Rang()) << "it was starving";
    }
    EXPECT_EQ(Ahead(4000)[0], 1.0F / 8192);
    // What was made is made once more up to the place, so that none is lost or heard twice.
    const std::vector<float> again = Ahead(4096 - 700);
    EXPECT_EQ(again[0], 701.0F / 8192);
    EXPECT_EQ(again[2299], 3000.0F / 8192);
    EXPECT_EQ(again[2300], 0.0F);
    EXPECT_EQ(stream_.Left(), 3000);
    mixer_.Commit(4096 - 2300);
    EXPECT_GT(stream_.Left(), 0);
    mixer_.Commit(0);
    EXPECT_EQ(stream_.Left(), 0);
}

TEST_F(SpeechAhead, ADropSilencesWhatWasMadeAndTheVolumeChangesIt) {
    Write(stream_, 8000, 0.5F);
    Ahead(0);
    mixer_.Commit(4096 - 300);
    Rang();
    stream_.SetGain(0.5F);
    EXPECT_TRUE(Rang());
    EXPECT_EQ(Ahead(3700)[500], 0.25F);
    stream_.Drop();
    EXPECT_TRUE(Rang());
    const std::vector<float> dropped = Ahead(4000);
    EXPECT_GT(dropped[0], 0.2F);
    EXPECT_EQ(dropped[96], 0.0F);
    Write(stream_, 100, 0.125F);
    EXPECT_TRUE(Rang());
    EXPECT_GT(Ahead(4076)[0], 0.0625F) << "the rest of the tail below the new text";
    mixer_.Commit(0);
    stream_.Drop();
    stream_.SetGain(1);
    EXPECT_FALSE(Rang()) << "nothing is to be heard";
}

}  // namespace
}  // namespace tamlo
