// All that is heard, without a sound card of its own: on a machine that has none, and on the audio
// library's dummy.
#include "linux/sound/sound_output.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "audio/eventually.h"
#include "audio/mixing_signals.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class SoundOutputTest : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        setenv("SDL_AUDIODRIVER", GetParam(), 1);
        setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
    }
    void TearDown() override { unsetenv("SDL_AUDIODRIVER"); }
};

TEST_P(SoundOutputTest, PlaysASoundToItsEnd) {
    const TemporaryFolder folder;
    folder.Write("quarter.wav", WaveBytes(8000, 1, Tone(500, 8000, 2000)));
    SoundOutput output(folder.Path());
    output.AwaitOpening();
    testing::internal::CaptureStderr();
    const auto device = output.Sound().CreateDevice();
    const auto sound = device->CreateBufferFromFile("quarter", {});
    const auto began = Clock::now();
    sound->Play(PlayMode::once);
    output.Beep();
    EXPECT_TRUE(Eventually([&] { return sound->GetStatus() == 0; }));
    EXPECT_GT(Clock::now() - began, 200ms);
    const bool card = std::string(GetParam()) == "dummy";
    EXPECT_EQ(output.Card().driver, card ? "dummy" : "");
    EXPECT_EQ(output.Card().openings, card ? 1 : 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

/// No thread can be started while this lives: none may have a stack of that size.
class NoThreads {
  public:
    NoThreads() {
        pthread_getattr_default_np(&before_);
        pthread_attr_t impossible = before_;
        pthread_attr_setstacksize(&impossible, std::size_t{1} << 60);
        pthread_setattr_default_np(&impossible);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() { pthread_setattr_default_np(&before_); }

  private:
    pthread_attr_t before_{};
};

TEST_P(SoundOutputTest, WithoutThreadsSoundsTakeTheirTimeUnheard) {
    const TemporaryFolder folder;
    folder.Write("quarter.wav", WaveBytes(8000, 1, Tone(500, 8000, 2000)));
    const NoThreads none;
    SoundOutput output(folder.Path());
    output.AwaitOpening();
    EXPECT_FALSE(output.Audible());
    const auto device = output.Sound().CreateDevice();
    const auto sound = device->CreateBufferFromFile("quarter", {});
    const auto began = Clock::now();
    sound->Play(PlayMode::once);
    EXPECT_TRUE(Eventually([&] { return output.TurnClock() < 1 && sound->GetStatus() == 0; }));
    EXPECT_GT(Clock::now() - began, 200ms);
}

INSTANTIATE_TEST_SUITE_P(Drivers, SoundOutputTest, testing::Values("dummy", "no such driver"));

// Holds the audio thread up now and then, as a busy machine does; heard while `level` is not 0.
class Stumbling final : public StatelessSource {
  public:
    void AddTo(float* stereo, int frames) noexcept override {
        if (++blocks_ % 40 == 0) std::this_thread::sleep_for(40ms);
        for (int i = 0; i < 2 * frames; ++i) stereo[i] += level;
    }
    std::atomic<float> level{0.1F};

  private:
    int blocks_ = 0;
};

class SoundCardTest : public SoundOutputTest {};

TEST_P(SoundCardTest, TakesLargerBlocksAfterLateOnesOnceNothingIsSpoken) {
    Stumbling voice;
    SoundOutput output("");
    output.AwaitOpening();
    output.Attach(voice);
    EXPECT_TRUE(Eventually([&] { return output.Card().late >= 3; }));
    std::this_thread::sleep_for(300ms);
    EXPECT_EQ(output.Card().frames, 256);
    EXPECT_EQ(output.Card().openings, 1);
    bool always_audible = true;
    voice.level = 0;
    EXPECT_TRUE(Eventually([&] {
        always_audible = always_audible && output.Audible();
        return output.Card().openings >= 2;
    }));
    EXPECT_GE(output.Card().frames, 512);
    // The dummy serves one stream at a time, and has to be closed first.
    EXPECT_TRUE(always_audible || std::string(GetParam()) == "dummy");
    output.Detach(voice);
}

INSTANTIATE_TEST_SUITE_P(Drivers, SoundCardTest, testing::Values("dummy", "disk"));

}  // namespace
}  // namespace tamlo
