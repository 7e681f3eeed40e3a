// Keys from a pipe: each at its moment, and the end when there are no more.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "linux/pipe/observed.h"
#include "linux/pipe/piped_events.h"
#include "services/end_of_process.h"

namespace tamlo {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HandClock : public Clock {
  public:
    std::chrono::microseconds Steady() const override { return now; }
    double SecondsSinceMidnight() const override { return 0; }
    TimeOfDay Now() const override { return {}; }
    Date Today() const override { return {}; }
    std::chrono::microseconds now{};
};

/// A voice and a sound that last until the test says otherwise.
struct World {
    bool speaking = false;
    bool playing = false;
};

class FakeEngine : public SpeechEngine {
  public:
    explicit FakeEngine(World& world) : world_(world) {}
    void Speak(std::string_view, SpeakFlags) override {}
    RunningState Status() const override {
        return world_.speaking ? RunningState::speaking : RunningState::done;
    }
    double SecondsLeft() const override { return 0; }
    void SetRate(int) override {}
    void SetEchoRate(int) override {}
    void SetVolume(int) override {}
    int GetVoicesCount() const override { return 1; }
    void SetVoice(int) override {}

  private:
    World& world_;
};

class FakeBuffer : public SoundBuffer {
  public:
    explicit FakeBuffer(World& world) : world_(world) {}
    void SetCurrentPosition(unsigned) override {}
    void SetVolume(int) override {}
    void SetPan(int) override {}
    int GetFrequency() const override { return 22050; }
    void SetFrequency(int) override {}
    void Play(PlayMode) override {}
    void Stop() override {}
    int GetStatus() const override { return world_.playing ? status_playing : 0; }
    double SecondsLeft() const override { return 0; }

  private:
    World& world_;
};

class FakeServices : public Speech, public SoundSystem, public SoundDevice, public Random {
  public:
    explicit FakeServices(World& world) : world_(world) {}
    std::unique_ptr<SpeechEngine> CreateEngine() override {
        return std::make_unique<FakeEngine>(world_);
    }
    std::unique_ptr<SoundDevice> CreateDevice() override {
        return std::make_unique<FakeServices>(world_);
    }
    void SetCooperativeLevel(int) override {}
    std::unique_ptr<SoundBuffer> CreateBufferFromFile(std::string_view,
                                                      const BufferDescription&) override {
        return std::make_unique<FakeBuffer>(world_);
    }
    void Seed(double) override {}
    double Next() override { return 0; }

  private:
    World& world_;
};

class PipedTest : public ::testing::Test, protected KeyListener {
  protected:
    PipedTest() {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        game_ = Descriptor(ends[0]);
        writer_ = Descriptor(ends[1]);
        keys_.emplace(game_.Number(), Gaps::lost, clock_, signals_);
        events_.emplace(*keys_, activity_, signals_, clock_);
    }
    void Form_KeyDown(int code, int) override { pressed_.push_back(code); }

    void Send(std::string_view bytes) {
        ASSERT_EQ(::write(writer_.Number(), bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
    }
    /// A turn after so many milliseconds more.
    void TurnAfter(int time) {
        clock_.now += milliseconds(time);
        events_->Turn(*this, 0);
    }

    HandClock clock_;
    World world_;
    FakeServices real_{world_};
    SignalWatch signals_;
    Activity activity_{clock_};
    ObservedSpeech speech_{real_, activity_};
    ObservedSound sound_{real_, activity_};
    ObservedRandom random_{real_, activity_};
    Descriptor game_;
    Descriptor writer_;
    std::optional<KeyInput> keys_;
    std::optional<PipedEvents> events_;
    std::vector<int> pressed_;
};

TEST_F(PipedTest, AKeyComesWhenNothingWasAskedForASecond) {
    Send("ab");
    TurnAfter(999);
    EXPECT_THAT(pressed_, IsEmpty());
    TurnAfter(1);
    EXPECT_THAT(pressed_, ElementsAre(65));
    random_.Next();
    TurnAfter(999);
    EXPECT_THAT(pressed_, ElementsAre(65));
    TurnAfter(1);
    EXPECT_THAT(pressed_, ElementsAre(65, 66));
}

TEST_F(PipedTest, SpeechAndSoundsPlayedOnceAreWaitedFor) {
    const auto engine = speech_.CreateEngine();
    const auto device = sound_.CreateDevice();
    const auto buffer = device->CreateBufferFromFile("tamlo1", {});
    const struct {
        const char* what;
        PlayMode mode;
        bool speaking;
        bool playing;
        bool waits;
    } cases[] = {
        {"speech", PlayMode::looping, true, false, true},
        {"a sound played once", PlayMode::once, false, true, true},
        {"a loop", PlayMode::looping, false, true, false},
    };
    Send("aaa");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        pressed_.clear();
        buffer->Play(c.mode);
        world_ = {c.speaking, c.playing};
        TurnAfter(5000);
        EXPECT_EQ(pressed_.empty(), c.waits);
        world_ = {};
        TurnAfter(999);
        EXPECT_EQ(pressed_.empty(), c.waits);
        TurnAfter(1);
        EXPECT_THAT(pressed_, ElementsAre(65));
    }
}

TEST_F(PipedTest, TheEndOfTheInputLetsSpeechFinish) {
    const auto engine = speech_.CreateEngine();
    Send("A");
    writer_.Close();
    for (int i = 0; i < 4; ++i) TurnAfter(1000);
    EXPECT_THAT(pressed_, ElementsAre(16, 65));
    world_.speaking = true;
    TurnAfter(90000);
    world_.speaking = false;
    engine->Speak("next", SpeakFlags::queue);
    world_.speaking = true;
    TurnAfter(3000);
    world_.speaking = false;
    TurnAfter(500);
    try {
        TurnAfter(500);
        FAIL() << "the input has ended";
    } catch (const EndOfProcess& end) {
        EXPECT_EQ(end.exit_status, 0);
        EXPECT_EQ(end.reason, "The input has ended.");
    }
}

TEST_F(PipedTest, AGameThatNeverRestsEndsWithItsInputToo) {
    writer_.Close();
    int turns = 0;
    try {
        for (; turns < 10000; ++turns) {
            random_.Next();
            TurnAfter(100);
        }
    } catch (const EndOfProcess&) {
    }
    EXPECT_NEAR(turns, 600, 2);
}

}  // namespace
}  // namespace tamlo
