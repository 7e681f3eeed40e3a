// The voice as the game and the mixer use it: with a synthesizer made for the purpose, where the
// samples count, and with the real one, where they must be speech.
#include "platform/voice/voice_speech.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/allocation_counter.h"
#include "platform/end_of_process.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr int block = 240;  ///< frames, 5 ms
constexpr float audible = 0.00316f;

/// What has been pulled from a voice, as the sound card would hear it.
class Listener {
  public:
    explicit Listener(VoiceSpeech& voice) : voice_(voice) {}

    /// Pulls one block, once its samples are there or will not come.
    void PullBlock() {
        const auto deadline = steady_clock::now() + 20s;
        while (engine_view_->SecondsLeft() < 0.006 && voice_.SamplesComing()) {
            ASSERT_LT(steady_clock::now(), deadline) << "no samples come";
            std::this_thread::yield();
        }
        PullNow(block);
    }

    void PullNow(int frames) {
        std::vector<float> stereo(2 * static_cast<std::size_t>(frames));
        voice_.Stream().AddTo(stereo.data(), frames);
        for (std::size_t i = 0; i < stereo.size(); i += 2) heard.push_back(stereo[i]);
    }

    /// Pulls until the voice is silent; nothing is heard behind it.
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

double Seconds(const std::vector<float>& heard) {
    return static_cast<double>(heard.size()) / stream_rate;
}

double Energy(const std::vector<float>& heard) {
    double sum = 0;
    for (float sample : heard) sum += sample * sample;
    return sum;
}

/// Runs of audible sound with silences of at least 100 ms between them: first and last frame.
std::vector<std::pair<std::size_t, std::size_t>> Sounds(const std::vector<float>& heard) {
    std::vector<std::pair<std::size_t, std::size_t>> sounds;
    for (std::size_t i = 0; i < heard.size(); ++i) {
        if (std::abs(heard[i]) <= audible) continue;
        if (sounds.empty() || i - sounds.back().second > stream_rate / 10) sounds.push_back({i, i});
        sounds.back().second = i;
    }
    return sounds;
}

/// Says every text as a steady level of 0.5 for as many milliseconds as the text's number, behind
/// 100 ms of silence. "hang" answers only when it is let go; "silence" gives silence.
class FakeSynthesizer : public Synthesizer {
  public:
    struct Log {
        std::vector<Utterance> utterances;
        std::atomic<bool> let_go{false};
        std::atomic<int> begun{0};
    };
    explicit FakeSynthesizer(Log& log, int voices = 3) : log_(log), voices_(voices) {}
    ~FakeSynthesizer() override = default;
    int Open() override { return voices_; }
    int Rate() const override { return stream_rate; }
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

struct FakeVoice {
    FakeSynthesizer::Log log;
    VoiceSpeech voice{{}, std::make_unique<FakeSynthesizer>(log)};
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
    // None behind the last.
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
    };
    constexpr Case cases[] = {{0, 0, 0, 0},          {5, 2, 5, 2},      {15, 1, 15, 1},
                              {16, 3, 15, 1},        {-10, -1, -10, 1}, {-99, 99, -10, 1},
                              {2000000000, 0, 15, 0}};
    for (const Case& c : cases) {
        fake.engine->SetRate(c.rate);
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
            for (std::size_t i = 96; i < block; ++i) ASSERT_EQ(fake.listener.heard[i], 0.0f);
        } else {
            fake.engine->Speak("20", SpeakFlags::queue);
            fake.listener.HearOut();
            // But for the edges, which the change of rates rounds off.
            auto& heard = fake.listener.heard;
            auto level = [](float sample) { return std::abs(sample - 0.5f) < 0.02f; };
            ASSERT_NEAR(static_cast<double>(std::count_if(heard.begin(), heard.end(), level)),
                        20 * 48, 100)
                << cycle;
        }
    }
}

TEST(VoiceSpeech, ALongTextIsMadeOnlyAsItIsHeard) {
    FakeVoice fake;
    fake.engine->Speak("30000", SpeakFlags::queue);
    fake.listener.PullBlock();
    EXPECT_LE(fake.engine->SecondsLeft(), 1.0);
    fake.listener.HearOut();
    EXPECT_NEAR(Seconds(fake.listener.heard), 30.0, 0.01);
    auto& heard = fake.listener.heard;
    EXPECT_EQ(std::count(heard.begin(), heard.begin() + 29 * stream_rate, 0.0f), 0);
}

TEST(VoiceSpeech, PullingAllocatesAndFreesNothing) {
    FakeVoice fake;
    std::vector<float> stereo(2 * block);
    for (int i = 0; i < 1000; ++i) {
        if (i % 50 == 0) fake.engine->Speak("200", SpeakFlags::queue);
        if (i % 120 == 0) fake.engine->Speak("", SpeakFlags::purge);
        if (i % 30 == 0) fake.engine->SetVolume(i % 100);
        const long before = AllocationsOfThisThread();
        fake.voice.Stream().AddTo(stereo.data(), block);
        ASSERT_EQ(AllocationsOfThisThread(), before);
    }
}

TEST(VoiceSpeech, WaitingIsPatientAndReturnsWithTheLastSample) {
    int turns = 0;
    FakeSynthesizer::Log log;
    VoiceSpeech voice({.patience = [&] { ++turns; }, .spoken = {}},
                      std::make_unique<FakeSynthesizer>(log));
    auto engine = voice.CreateEngine();
    std::atomic<bool> end{false};
    std::thread card([&] {
        std::vector<float> stereo(96);
        while (!end) {
            voice.Stream().AddTo(stereo.data(), 48);
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
    VoiceSpeech voice({.patience =
                           [] {
                               throw EndOfProcess{3, ""};
                           },
                       .spoken = {}},
                      std::make_unique<FakeSynthesizer>(log));
    auto engine = voice.CreateEngine();
    engine->Speak("1000", SpeakFlags::queue);
    EXPECT_THROW(engine->Speak("1000", SpeakFlags::wait), EndOfProcess);
    EXPECT_EQ(engine->Status(), RunningState::done);
}

TEST(VoiceSpeech, EveryTextIsShownAsItIsGiven) {
    std::vector<std::string> shown;
    FakeSynthesizer::Log log;
    VoiceSpeech voice({.patience = {}, .spoken = [&](auto text) { shown.emplace_back(text); }},
                      std::make_unique<FakeSynthesizer>(log, 0));
    auto engine = voice.CreateEngine();
    engine->Speak(" cost $5.. ", SpeakFlags::queue);
    engine->Speak("", SpeakFlags::purge);
    engine->Speak("\xFF", SpeakFlags::wait);
    EXPECT_THAT(shown, testing::ElementsAre(" cost $5.. ", "\xFF"));
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

TEST(VoiceSpeech, ASynthesizerThatHangsCountsAsHavingSpoken) {
    FakeVoice fake;
    for (const bool purged : {false, true}) {
        fake.log.let_go = false;
        int begun = fake.log.begun;
        const auto start = steady_clock::now();
        fake.engine->Speak("hang", SpeakFlags::queue);
        while (fake.log.begun == begun) std::this_thread::yield();
        if (purged) fake.engine->Speak("", SpeakFlags::purge);
        fake.engine->Speak("10", SpeakFlags::wait);
        EXPECT_GE(steady_clock::now() - start, 1900ms);
        EXPECT_LT(steady_clock::now() - start, 20s);
        // While it hangs nothing is waited for; when it answers again, it speaks again.
        fake.engine->Speak("10", SpeakFlags::queue);
        EXPECT_EQ(fake.engine->Status(), RunningState::done);
        fake.log.let_go = true;
        const auto deadline = steady_clock::now() + 20s;
        do {
            ASSERT_LT(steady_clock::now(), deadline);
            fake.engine->Speak("10", SpeakFlags::queue);
            std::this_thread::sleep_for(1ms);
        } while (fake.engine->Status() == RunningState::done);
        fake.listener.HearOut();
        EXPECT_GT(Energy(fake.listener.heard), 0);
    }
}

TEST(VoiceSpeech, WithoutVoicesTextsCountAsSpoken) {
    FakeSynthesizer::Log log;
    VoiceSpeech voice({}, std::make_unique<FakeSynthesizer>(log, 0));
    auto engine = voice.CreateEngine();
    engine->Speak("100", SpeakFlags::wait);
    EXPECT_EQ(engine->GetVoicesCount(), 0);
    engine->SetVoice(0);
    engine->Speak("100", SpeakFlags::queue);
    EXPECT_EQ(engine->Status(), RunningState::done);
    EXPECT_TRUE(log.utterances.empty());
}

class Espeak : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(engine_->GetVoicesCount(), 10); }

    /// All samples of a text that is spoken alone.
    const std::vector<float>& Hear(std::string_view text) {
        listener_.heard.clear();
        engine_->Speak(text, SpeakFlags::queue);
        listener_.HearOut(3000);
        return listener_.heard;
    }

    VoiceSpeech voice_;
    std::unique_ptr<SpeechEngine> engine_ = voice_.CreateEngine();
    Listener listener_{voice_};
};

/// Hertz: the distance at which the sound resembles itself most, within that of voices.
double Pitch(const std::vector<float>& heard) {
    std::size_t best = 0;
    double best_sum = 0;
    for (std::size_t lag = stream_rate / 320; lag < stream_rate / 70; ++lag) {
        double sum = 0;
        for (std::size_t i = 0; i + lag < heard.size(); i += 3) sum += heard[i] * heard[i + lag];
        if (sum > best_sum) {
            best_sum = sum;
            best = lag;
        }
    }
    return best == 0 ? 0 : static_cast<double>(stream_rate) / static_cast<double>(best);
}

TEST_F(Espeak, EveryVoiceSpeaksAndWomenSpeakHigherThanMen) {
    constexpr bool women[] = {false, false, true, true, true, false, false, false, false, false};
    double highest_man = 0;
    double lowest_woman = 1000;
    for (int i = 0; i < 10; ++i) {
        engine_->SetVoice(i);
        const auto& heard = Hear("We all know our own way home.");
        EXPECT_GT(Energy(heard), 10) << i;
        double pitch = Pitch(heard);
        if (women[i]) lowest_woman = std::min(lowest_woman, pitch);
        if (!women[i]) highest_man = std::max(highest_man, pitch);
    }
    EXPECT_GT(lowest_woman, highest_man * 1.2);
    EXPECT_GT(highest_man, 70);
}

TEST_F(Espeak, EverySingleCharacterIsHeardButTheBlank) {
    std::vector<std::string> characters = {"\xC2\xBE", "\xC3\xA9"};
    for (char c = '!'; c <= '~'; ++c) characters.push_back(std::string(1, c));
    for (const std::string& character : characters) {
        EXPECT_GT(Energy(Hear(character)), 5) << character;
    }
    for (const char* silent : {" ", "", "   ", "\x1B", "\xFF"}) {
        EXPECT_EQ(Energy(Hear(silent)), 0) << silent;
        EXPECT_LT(Seconds(listener_.heard), 0.02) << silent;
    }
}

TEST_F(Espeak, FirstSoundComesWithTheFirstSamples) {
    for (const char* text : {" select ", "Yes", " The time is 3:05", "house", "map", "4", "s"}) {
        for (int rate : {-10, 0, 10, 15}) {
            engine_->SetRate(rate);
            auto sounds = Sounds(Hear(text));
            ASSERT_FALSE(sounds.empty()) << text;
            EXPECT_LE(sounds[0].first, stream_rate / 500u) << text << rate;
        }
    }
}

TEST_F(Espeak, HigherRatesAreQuicker) {
    double slower = 100;
    for (int rate : {-10, -5, 0, 5, 10, 15}) {
        engine_->SetRate(rate);
        double seconds = Seconds(Hear("You no longer have any tamlos to deliver."));
        EXPECT_LT(seconds, slower * 0.95) << rate;
        slower = seconds;
    }
    EXPECT_GT(slower, 0.3);
}

TEST_F(Espeak, VolumeScalesWhatIsHeard) {
    double full = Energy(Hear("volume"));
    engine_->SetVolume(50);
    EXPECT_NEAR(Energy(Hear("volume")) / full, 0.25, 0.03);
    engine_->SetVolume(-5);
    EXPECT_EQ(Energy(Hear("volume")), 0);
    engine_->SetVolume(1000);
    EXPECT_NEAR(Energy(Hear("volume")) / full, 1, 0.1);
    for (float sample : listener_.heard) ASSERT_LE(std::abs(sample), 1.0f);
}

TEST_F(Espeak, MarkupAndBracketsAreText) {
    struct Case {
        const char* marked;
        const char* plain;
    };
    // As a command each would change how long the words last.
    constexpr Case cases[] = {
        {"one \x01"
         "80S two three four",
         "one 80 S two three four"},
        {"[[h@l'oU w'3:ld]] one", "h@l'oU w'3:ld one"},
        {"<prosody rate=\"400%\">one two three four five six</prosody>",
         "less than prosody rate 400 percent greater one two three four five six less prosody"},
    };
    for (const auto& [marked, plain] : cases) {
        double expected = Seconds(Hear(plain));
        double seconds = Seconds(Hear(marked));
        EXPECT_GT(seconds, 0.6 * expected) << marked;
        EXPECT_LT(seconds, 1.7 * expected) << marked;
    }
}

TEST_F(Espeak, HostileTextsEnd) {
    std::string noise;
    unsigned state = 1;
    for (int i = 0; i < 3000; ++i) {
        state = state * 1664525u + 1013904223u;
        noise += static_cast<char>(state >> 24);
    }
    std::string many_words;
    while (many_words.size() < 100'000)
        many_words += "tamlo " + std::to_string(many_words.size()) + ", ";
    const std::string texts[] = {
        noise,
        many_words,
        std::string(100'000, 'a'),
        std::string(100'000, '9'),
        std::string(100'000, '.'),
        std::string(100'000, ' '),
        std::string(5'000, '\0'),
        std::string(20'000, '\n'),
    };
    engine_->SetRate(15);
    for (const std::string& text : texts) {
        // Not heard to the end, which would be hours: begun, broken off, and the next is heard.
        engine_->Speak(text, SpeakFlags::queue);
        for (int i = 0; i < 200; ++i) listener_.PullBlock();
        engine_->Speak("", SpeakFlags::purge);
        EXPECT_GT(Energy(Hear("next")), 5) << text.substr(0, 10);
    }
}

TEST_F(Espeak, TwoHundredPurgesLoseNothing) {
    double alone = Energy(Hear("select"));
    for (int cycle = 0; cycle < 200; ++cycle) {
        engine_->Speak(" Your current delivery trip time is 14 minutes ", SpeakFlags::queue);
        for (int i = 0; i < cycle % 4; ++i) listener_.PullBlock();
        engine_->Speak("", SpeakFlags::purge);
        ASSERT_EQ(engine_->Status(), RunningState::done);
        listener_.PullNow(block);
        ASSERT_NEAR(Energy(Hear("select")) / alone, 1, 0.15) << cycle;
    }
}

TEST(EspeakLibrary, ServesOneAtATime) {
    VoiceSpeech first;
    EXPECT_GT(first.CreateEngine()->GetVoicesCount(), 0);
    VoiceSpeech second;
    EXPECT_EQ(second.CreateEngine()->GetVoicesCount(), 0);
}

TEST(EspeakLibraryDeathTest, WithoutItsDataThereAreNoVoices) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto folder = std::filesystem::path(testing::TempDir()) / "no_voice_data";
    std::filesystem::create_directories(folder / "espeak-ng-data");
    auto speak_without_data = [&] {
        setenv("ESPEAK_DATA_PATH", folder.c_str(), 1);
        VoiceSpeech voice;
        auto engine = voice.CreateEngine();
        engine->Speak("nobody hears this", SpeakFlags::wait);
        std::exit(engine->GetVoicesCount());
    };
    EXPECT_EXIT(speak_without_data(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tamlo
