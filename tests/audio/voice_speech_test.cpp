// The voice as the game and the mixer use it, with a synthesizer made for the purpose: the samples
// count.
#include "audio/voice/voice_speech.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "audio/allocation_counter.h"
#include "audio/eventually.h"
#include "audio/voice/voices.h"
#include "audio/voice_listener.h"
#include "services/end_of_process.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

/// Says every text as a steady level of 0.5 for as many milliseconds as the text's number, after
/// 100 ms of silence. "hang" answers only when it is let go; "silence" gives silence.
class FakeSynthesizer : public Synthesizer {
  public:
    struct Log {
        std::vector<Utterance> utterances;
        std::atomic<bool> let_go{false};
        std::atomic<bool> opening{false};
        std::atomic<int> begun{0};
        std::atomic<int> alive{0};
    };
    FakeSynthesizer(Log& log, int voices) : log_(log), voices_(voices) { ++log_.alive; }
    ~FakeSynthesizer() override { --log_.alive; }
    int Open() override {
        while (log_.opening) std::this_thread::sleep_for(1ms);
        return voices_;
    }
    int Rate(int) const override { return stream_rate; }
    void Synthesize(const Utterance& utterance, const Sink& sink) override {
        log_.utterances.push_back(utterance);
        ++log_.begun;
        while (utterance.text == "hang" && !log_.let_go) std::this_thread::sleep_for(1ms);
        std::vector<std::int16_t> some(stream_rate / 10);
        sink(some);
        int frames = utterance.text == "silence" ? 0 : std::atoi(utterance.text.c_str()) * 48;
        some.assign(480, 0x4000);
        for (; frames > 0; frames -= 480) {
            if (!sink(std::span(some).first(static_cast<std::size_t>(std::min(frames, 480)))))
                return;
        }
    }

  private:
    Log& log_;
    int voices_;
};

SynthesizerMaker Making(FakeSynthesizer::Log& log, int voices = 3) {
    return [&log, voices] { return std::make_unique<FakeSynthesizer>(log, voices); };
}

struct FakeVoice {
    FakeSynthesizer::Log log;
    VoiceSpeech voice{{}, Making(log)};
    std::unique_ptr<SpeechEngine> engine = voice.CreateEngine();
    Listener listener{voice};
};

TEST(VoiceSpeech, QueuedTextsComeInOrderWithAPauseBetweenThem) {
    FakeVoice fake;
    for (const char* text : {"200", "silence", " ", "\x01\n", "50", "300"}) {
        fake.engine->Speak(text, SpeakFlags::queue);
    }
    fake.listener.HearOut();
    auto sounds = Sounds(fake.listener.heard);
    ASSERT_EQ(sounds.size(), 3u);
    constexpr double lengths[] = {0.2, 0.05, 0.3};
    std::size_t expected_start = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        auto [first, last] = sounds[i];
        // Leading silence is left out, to the millisecond.
        EXPECT_NEAR(static_cast<double>(first), static_cast<double>(expected_start), 48);
        EXPECT_NEAR(static_cast<double>(last - first) / stream_rate, lengths[i], 0.001);
        expected_start = last + stream_rate * 130 / 1000;
    }
    // None after the last.
    EXPECT_NEAR(Seconds(fake.listener.heard), 0.2 + 0.13 + 0.05 + 0.13 + 0.3, 0.006);
}

TEST(VoiceSpeech, StatusIsSpeakingUntilTheLastSampleHasBeenTaken) {
    FakeVoice fake;
    EXPECT_EQ(fake.engine->Status(), RunningState::done);
    EXPECT_EQ(fake.engine->SecondsLeft(), 0);
    fake.engine->Speak("100", SpeakFlags::queue);
    EXPECT_EQ(fake.engine->Status(), RunningState::speaking);
    EXPECT_GT(fake.engine->SecondsLeft(), 0);
    while (fake.voice.SamplesComing()) std::this_thread::yield();
    int left = static_cast<int>(std::lround(fake.engine->SecondsLeft() * stream_rate));
    EXPECT_NEAR(left, 4800, 48);
    fake.listener.PullNow(left - 1);
    EXPECT_EQ(fake.engine->Status(), RunningState::speaking);
    fake.listener.PullNow(1);
    EXPECT_EQ(fake.engine->Status(), RunningState::done);
    EXPECT_EQ(fake.engine->SecondsLeft(), 0);
}

TEST(VoiceSpeech, RateAndVoiceAreThoseOfTheCall) {
    FakeVoice fake;
    struct Case {
        int rate;
        int voice;
        int heard_rate;
        int heard_voice;
        bool echo = false;
    };
    constexpr Case cases[] = {{0, 0, 0, 0},           {5, 2, 5, 2},        {11, 1, 10, 1},
                              {15, 3, 10, 1},         {-10, -1, -10, 1},   {-99, 99, -10, 1},
                              {2000000000, 0, 10, 0}, {7, 0, 12, 0, true}, {11, 0, 15, 0, true},
                              {-12, 0, -5, 0, true}};
    for (const Case& c : cases) {
        c.echo ? fake.engine->SetEchoRate(c.rate) : fake.engine->SetRate(c.rate);
        fake.engine->SetVoice(c.voice);
        fake.engine->Speak("10", SpeakFlags::queue);
        fake.engine->SetRate(1);
    }
    fake.listener.HearOut();
    ASSERT_EQ(fake.log.utterances.size(), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(fake.log.utterances[i].rate, cases[i].heard_rate) << i;
        EXPECT_EQ(fake.log.utterances[i].voice, cases[i].heard_voice) << i;
    }
}

TEST(VoiceSpeech, APurgeSilencesWithinItsTailAndTheNextTextStartsAtOnce) {
    FakeVoice fake;
    for (int cycle = 0; cycle < 200; ++cycle) {
        fake.engine->Speak("5000", SpeakFlags::queue);
        fake.engine->Speak("5000", SpeakFlags::queue);
        for (int i = 0; i < cycle % 5; ++i) fake.listener.PullBlock();
        fake.engine->Speak("", SpeakFlags::purge);
        ASSERT_EQ(fake.engine->Status(), RunningState::done);
        ASSERT_EQ(fake.engine->SecondsLeft(), 0);
        ASSERT_FALSE(fake.voice.SamplesComing());
        fake.listener.heard.clear();
        if (cycle % 2 == 0) {
            fake.listener.PullNow(block);
            for (std::size_t i = 96; i < block; ++i) ASSERT_EQ(fake.listener.heard[i], 0.0F);
        } else {
            fake.engine->Speak("20", SpeakFlags::queue);
            fake.listener.HearOut();
            // But for the edges, which the change of rates rounds off.
            auto& heard = fake.listener.heard;
            auto level = [](float sample) { return std::abs(sample - 0.5F) < 0.02F; };
            ASSERT_NEAR(static_cast<double>(std::count_if(heard.begin(), heard.end(), level)),
                        20 * 48, 100)
                << cycle;
        }
    }
}

/// A voice whose card goes and comes: what is pulled meanwhile is lost.
struct LosingVoice : FakeVoice {
    void Pull(double seconds, bool heard) {
        for (; seconds > 0; seconds -= 0.005) listener.PullBlock(heard);
    }
    /// The lengths in milliseconds of what is heard from now on.
    std::vector<int> HearAgain() {
        listener.heard.clear();
        listener.PullBlock();
        listener.HearOut();
        Pull(1, true);  // until it is heard for certain
        std::vector<int> lengths;
        for (auto [first, last] : Sounds(listener.heard)) {
            const auto centiseconds = static_cast<int>((last - first + 240) / 480);
            if (centiseconds > 0) lengths.push_back(10 * centiseconds);  // no tail of a purge
        }
        return lengths;
    }
};

TEST(VoiceSpeech, WhatWentUnheardIsSaidAgain) {
    using testing::ElementsAre;
    LosingVoice fake;
    const auto speak = [&](const char* text) { fake.engine->Speak(text, SpeakFlags::queue); };
    for (const char* text : {"400", "1000", "300"}) speak(text);
    fake.Pull(1, true);
    fake.Pull(0.1, false);  // in the middle of the second
    EXPECT_THAT(fake.HearAgain(), ElementsAre(1000, 300));
    EXPECT_THAT(fake.HearAgain(), ElementsAre()) << "once only";

    speak("500");
    fake.Pull(2, false);
    EXPECT_EQ(fake.engine->Status(), RunningState::done) << "the game has gone on";
    speak("100");
    fake.Pull(0.05, false);
    EXPECT_THAT(fake.HearAgain(), ElementsAre(500, 100));

    speak("600");
    fake.Pull(0.1, false);
    fake.engine->Speak("", SpeakFlags::purge);
    EXPECT_THAT(fake.HearAgain(), ElementsAre()) << "a key has answered it";

    for (int i = 0; i < 12; ++i) speak(i < 4 ? "50" : "70");
    fake.Pull(5, false);
    speak("90");
    EXPECT_THAT(fake.HearAgain(), ElementsAre(70, 70, 70, 70, 70, 70, 70, 90))
        << "the last of many";
}

TEST(VoiceSpeech, ALongTextIsMadeOnlyAsItIsHeard) {
    FakeVoice fake;
    fake.engine->Speak("30000", SpeakFlags::queue);
    fake.listener.PullBlock();
    EXPECT_LE(fake.engine->SecondsLeft(), 1.0);
    fake.listener.HearOut();
    EXPECT_NEAR(Seconds(fake.listener.heard), 30.0, 0.01);
    auto& heard = fake.listener.heard;
    EXPECT_EQ(std::count(heard.begin(), heard.begin() + 29 * stream_rate, 0.0F), 0);
}

TEST(VoiceSpeech, PullingAllocatesAndFreesNothing) {
    FakeVoice fake;
    std::vector<float> stereo(2 * block);
    for (int i = 0; i < 1000; ++i) {
        if (i % 50 == 0) fake.engine->Speak("200", SpeakFlags::queue);
        if (i % 120 == 0) fake.engine->Speak("", SpeakFlags::purge);
        if (i % 30 == 0) fake.engine->SetVolume(i % 100);
        const long before = AllocationsOfThisThread();
        fake.voice.Stream().Take(stereo.data(), block, true);
        ASSERT_EQ(AllocationsOfThisThread(), before);
    }
}

TEST(VoiceSpeech, WaitingIsPatientAndReturnsWithTheLastSample) {
    int turns = 0;
    FakeSynthesizer::Log log;
    VoiceSpeech voice({.patience = [&] { ++turns; }}, Making(log));
    auto engine = voice.CreateEngine();
    std::atomic<bool> end{false};
    std::thread card([&] {
        std::vector<float> stereo(96);
        while (!end) {
            voice.Stream().Take(stereo.data(), 48, true);
            std::this_thread::sleep_for(1ms);
        }
    });
    engine->Speak("100", SpeakFlags::queue);
    engine->Speak("100", SpeakFlags::wait);
    EXPECT_EQ(engine->Status(), RunningState::done);
    EXPECT_GE(turns, 3);
    turns = 0;
    engine->Speak(" ", SpeakFlags::wait);
    EXPECT_LT(turns, 100);  // 20 would do on an idle machine.
    end = true;
    card.join();
}

TEST(VoiceSpeech, TheEndOfTheProcessDuringAWaitDropsTheSpeech) {
    FakeSynthesizer::Log log;
    VoiceSpeech voice({.patience = [] { throw EndOfProcess{3, ""}; }}, Making(log));
    auto engine = voice.CreateEngine();
    engine->Speak("1000", SpeakFlags::queue);
    EXPECT_THROW(engine->Speak("1000", SpeakFlags::wait), EndOfProcess);
    EXPECT_EQ(engine->Status(), RunningState::done);
}

TEST(VoiceSpeech, AReplacedEngineTakesItsSpeechAlong) {
    FakeVoice fake;
    fake.engine->Speak("1000", SpeakFlags::queue);
    fake.listener.PullBlock();
    fake.engine = fake.voice.CreateEngine();
    EXPECT_EQ(fake.engine->Status(), RunningState::done);
    fake.engine->Speak("10", SpeakFlags::queue);
    fake.voice.CreateEngine().reset();  // This one had nothing to say.
    EXPECT_EQ(fake.engine->Status(), RunningState::speaking);
}

TEST(VoiceSpeech, ASynthesizerThatHangsIsReplacedThreeTimes) {
    constexpr auto patience = 300ms;
    FakeSynthesizer::Log log;
    std::vector<std::string> unspoken;
    VoiceSpeech voice({.unspoken = [&](auto text) { unspoken.emplace_back(text); }}, Making(log),
                      patience);
    auto engine = voice.CreateEngine();
    Listener listener(voice);
    for (const bool purged : {false, true, false}) {
        const int begun = log.begun;
        const auto start = steady_clock::now();
        engine->Speak("hang", SpeakFlags::queue);
        while (log.begun == begun) std::this_thread::yield();
        if (purged) engine->Speak("", SpeakFlags::purge);
        engine->Speak("10", SpeakFlags::queue);
        engine->Speak("20", SpeakFlags::queue);
        listener.heard.clear();
        listener.HearOut();
        EXPECT_GE(steady_clock::now() - start, patience);
        EXPECT_EQ(Sounds(listener.heard).size(), 2u);
    }
    // A text that nobody wanted any more is not missed.
    EXPECT_THAT(unspoken, testing::ElementsAre("hang", "hang"));

    // The last one keeps its place: nothing is waited for while it hangs, and when it answers, it
    // speaks.
    engine->Speak("hang", SpeakFlags::wait);
    engine->Speak("10", SpeakFlags::wait);
    EXPECT_THAT(unspoken, testing::ElementsAre("hang", "hang", "hang", "10"));
    log.let_go = true;
    EXPECT_TRUE(Eventually([&] {
        engine->Speak("10", SpeakFlags::queue);
        return engine->Status() == RunningState::speaking;
    }));
    listener.heard.clear();
    listener.HearOut();
    EXPECT_GT(Energy(listener.heard), 0);
    // Those left behind have gone by themselves.
    EXPECT_TRUE(Eventually([&] { return log.alive == 1; }));
}

TEST(VoiceSpeech, WithoutVoicesTextsTakeTheirTimeInSilenceIfSomebodyIsTold) {
    FakeSynthesizer::Log log;
    int told = 0;
    VoiceSpeech voice({.silent = [&] { return ++told > 0; }}, Making(log, 0));
    auto engine = voice.CreateEngine();
    Listener listener(voice);
    // As many as there can be: the settings keep what the player has chosen.
    EXPECT_EQ(engine->GetVoicesCount(), most_voices);
    EXPECT_EQ(engine->GetVoicesCount(), most_voices);
    EXPECT_EQ(told, 1);
    engine->Speak("thirty characters, two seconds", SpeakFlags::queue);
    listener.HearOut();
    EXPECT_NEAR(Seconds(listener.heard), 2, 0.01);
    EXPECT_EQ(Energy(listener.heard), 0);
    // The synthesizer without voices is left behind, and notes its end in the log.
    EXPECT_TRUE(Eventually([&] { return log.alive == 0; }));
}

TEST(VoiceSpeech, ASlowSynthesizerSpeaksOnceItIsOpen) {
    FakeSynthesizer::Log log;
    log.opening = true;
    int told = 0;
    VoiceSpeech voice({.silent = [&] { return ++told > 0; }}, Making(log, 3), 1s, 20ms);
    auto engine = voice.CreateEngine();
    EXPECT_EQ(engine->GetVoicesCount(), most_voices) << "those that there may be";
    engine->SetVoice(2);
    engine->Speak("100", SpeakFlags::queue);
    log.opening = false;
    Listener listener(voice);
    listener.HearOut();
    EXPECT_GT(Energy(listener.heard), 0);
    EXPECT_EQ(log.utterances.back().voice, 2);
    EXPECT_EQ(engine->GetVoicesCount(), 3);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(log.alive, 1) << "nobody else was asked";
}

TEST(VoiceSpeech, WithoutVoicesTextsCountAsSpokenAndAreShownAsTheyAreGiven) {
    std::vector<std::string> shown;
    FakeSynthesizer::Log log;
    VoiceSpeech voice({.spoken = [&](auto text) { shown.emplace_back(text); }}, Making(log, 0));
    auto engine = voice.CreateEngine();
    engine->Speak(" cost $5.. ", SpeakFlags::wait);
    EXPECT_EQ(engine->GetVoicesCount(), 0);
    engine->SetVoice(0);
    engine->Speak("", SpeakFlags::purge);
    engine->Speak("\xFF", SpeakFlags::queue);
    EXPECT_EQ(engine->Status(), RunningState::done);
    EXPECT_TRUE(log.utterances.empty());
    EXPECT_THAT(shown, testing::ElementsAre(" cost $5.. ", "\xFF"));
}

}  // namespace
}  // namespace tamlo
