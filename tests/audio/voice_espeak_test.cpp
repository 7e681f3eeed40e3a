// The voice with the real synthesizers: what is pulled must be speech.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "audio/voice/voice_speech.h"
#include "audio/voice_listener.h"

namespace tamlo {
namespace {

struct Family {
    const char* name;
    std::unique_ptr<Synthesizer> (*make)();
    std::vector<bool> women;
    /// How far another time's samples may differ in energy: an engine may draw on chance.
    double spread;
};

class Voices : public testing::TestWithParam<Family> {
  protected:
    void SetUp() override {
        ASSERT_EQ(engine_->GetVoicesCount(), static_cast<int>(GetParam().women.size()));
    }

    /// All samples of a text that is spoken alone.
    const std::vector<float>& Hear(std::string_view text) {
        listener_.heard.clear();
        engine_->Speak(text, SpeakFlags::queue);
        listener_.HearOut(3000);
        return listener_.heard;
    }

    VoiceSpeech voice_{{}, GetParam().make};
    std::unique_ptr<SpeechEngine> engine_ = voice_.CreateEngine();
    Listener listener_{voice_};
};

/// The distance at which 50 ms of sound resemble themselves most, within that of voices.
std::size_t Period(std::span<const float> sound) {
    std::size_t best = 0;
    double best_sum = 0;
    for (std::size_t lag = stream_rate / 320; lag < stream_rate / 70; ++lag) {
        double sum = 0;
        for (std::size_t i = 0; i < stream_rate / 20; i += 3) sum += sound[i] * sound[i + lag];
        if (sum > best_sum) {
            best_sum = sum;
            best = lag;
        }
    }
    return best;
}

/// Hertz: the median of all short stretches but for silence, since the pitch of a voice changes.
double Pitch(std::span<const float> heard) {
    constexpr std::size_t stretch = stream_rate / 10;
    std::vector<std::size_t> periods;
    for (; heard.size() >= stretch; heard = heard.subspan(stretch / 2)) {
        if (std::size_t period = Period(heard.first(stretch)); period > 0)
            periods.push_back(period);
    }
    if (periods.empty()) return 0;
    std::sort(periods.begin(), periods.end());
    return static_cast<double>(stream_rate) / static_cast<double>(periods[periods.size() / 2]);
}

TEST_P(Voices, EveryVoiceSpeaksAndWomenSpeakHigherThanMen) {
    double highest_man = 0;
    double lowest_woman = 1000;
    const std::vector<bool>& women = GetParam().women;
    for (std::size_t i = 0; i < women.size(); ++i) {
        engine_->SetVoice(static_cast<int>(i));
        const auto& heard = Hear("We all know our own way home.");
        EXPECT_GT(Energy(heard), 10) << i;
        double pitch = Pitch(heard);
        if (women[i]) lowest_woman = std::min(lowest_woman, pitch);
        if (!women[i]) highest_man = std::max(highest_man, pitch);
    }
    EXPECT_GT(lowest_woman, highest_man * 1.2);
    EXPECT_GT(highest_man, 70);
}

TEST_P(Voices, EverySingleCharacterIsHeardButTheBlank) {
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

TEST_P(Voices, FirstSoundComesWithTheFirstSamples) {
    for (const char* text : {" select ", "Yes", " The time is 3:05", "house", "map", "4", "s"}) {
        for (int rate : {-10, 0, 10, 15}) {
            engine_->SetRate(rate);
            auto sounds = Sounds(Hear(text));
            ASSERT_FALSE(sounds.empty()) << text;
            EXPECT_LE(sounds[0].first, stream_rate / 500u) << text << rate;
        }
    }
}

TEST_P(Voices, HigherRatesAreQuickerUpToTen) {
    const auto seconds = [&](int rate) {
        engine_->SetRate(rate);
        return Seconds(Hear("You no longer have any tamlos to deliver."));
    };
    double slower = 100;
    for (int rate : {-10, -5, 0, 5, 10}) {
        const double now = seconds(rate);
        EXPECT_LT(now, slower * 0.95) << rate;
        slower = now;
    }
    EXPECT_NEAR(seconds(15), slower, 0.1 * slower);
    EXPECT_GT(slower, 0.3);
}

TEST_P(Voices, VolumeScalesWhatIsHeard) {
    double full = Energy(Hear("volume"));
    engine_->SetVolume(50);
    EXPECT_NEAR(Energy(Hear("volume")) / full, 0.25, 0.03);
    engine_->SetVolume(-5);
    EXPECT_EQ(Energy(Hear("volume")), 0);
    engine_->SetVolume(1000);
    EXPECT_NEAR(Energy(Hear("volume")) / full, 1, 0.1);
    for (float sample : listener_.heard) ASSERT_LE(std::abs(sample), 1.0F);
}

TEST_P(Voices, MarkupAndBracketsAreText) {
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

TEST_P(Voices, HostileTextsEnd) {
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
    engine_->SetEchoRate(10);
    for (const std::string& text : texts) {
        // Not heard to the end, which would be hours: begun, broken off, and the next is heard.
        engine_->Speak(text, SpeakFlags::queue);
        for (int i = 0; i < 200; ++i) listener_.PullBlock();
        engine_->Speak("", SpeakFlags::purge);
        EXPECT_GT(Energy(Hear("next")), 5) << text.substr(0, 10);
    }
}

TEST_P(Voices, TwoHundredPurgesLoseNothing) {
    double alone = Energy(Hear("select"));
    for (int cycle = 0; cycle < 200; ++cycle) {
        engine_->Speak(" Your current delivery trip time is 14 minutes ", SpeakFlags::queue);
        for (int i = 0; i < cycle % 4; ++i) listener_.PullBlock();
        engine_->Speak("", SpeakFlags::purge);
        ASSERT_EQ(engine_->Status(), RunningState::done);
        listener_.PullNow(block);
        ASSERT_NEAR(Energy(Hear("select")) / alone, 1, GetParam().spread) << cycle;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, Voices,
    testing::Values(Family{"espeak",
                           MakeEspeak,
                           {false, false, true, true, true, false, false, false, false, false},
                           0.15},
                    Family{"flite", [] { return MakeFlite(); }, {true, false, false}, 0.15}),
    [](const auto& family) { return family.param.name; });

TEST(EspeakLibrary, ServesSeveralWhoDoNotKnowOfEachOther) {
    VoiceSpeech first({}, MakeEspeak);
    VoiceSpeech second({}, MakeEspeak);
    Listener to_first(first);
    Listener to_second(second);
    const auto high = first.CreateEngine();
    const auto quick = second.CreateEngine();
    ASSERT_EQ(high->GetVoicesCount(), 10);
    ASSERT_EQ(quick->GetVoicesCount(), 10);
    high->SetVoice(2);
    quick->SetRate(10);
    high->Speak("We all know our own way home.", SpeakFlags::queue);
    quick->Speak("We all know our own way home.", SpeakFlags::queue);
    to_second.HearOut();
    to_first.HearOut();
    EXPECT_GT(Seconds(to_first.heard), 2 * Seconds(to_second.heard));
    EXPECT_GT(Pitch(to_first.heard), 1.2 * Pitch(to_second.heard));
}

/// Speaks, but for "hang", with which it stays inside the library until it is let go.
class HangingEspeak : public Synthesizer {
  public:
    explicit HangingEspeak(const std::atomic<bool>& let_go) : let_go_(let_go) {}
    int Open() override { return espeak_->Open(); }
    int Rate(int voice) const override { return espeak_->Rate(voice); }
    void Synthesize(const Utterance& utterance, const Sink& sink) override {
        espeak_->Synthesize(utterance, [&](std::span<const std::int16_t> samples) {
            while (utterance.text == "hang" && !let_go_) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            return sink(samples);
        });
    }

  private:
    const std::atomic<bool>& let_go_;
    std::unique_ptr<Synthesizer> espeak_ = MakeEspeak();
};

TEST(EspeakLibrary, AnotherCopySpeaksWhileOneHangs) {
    static std::atomic<bool> let_go{false};  // The thread outlives this test by a moment.
    int made = 0;
    const auto make = [&] {
        ++made;
        return std::make_unique<HangingEspeak>(let_go);
    };
    VoiceSpeech voice({}, make, std::chrono::milliseconds(500));
    const auto engine = voice.CreateEngine();
    Listener listener(voice);
    ASSERT_EQ(engine->GetVoicesCount(), 10);
    engine->SetVoice(2);
    engine->Speak("hang", SpeakFlags::queue);
    engine->Speak("We all know our own way home.", SpeakFlags::queue);
    listener.HearOut();
    EXPECT_EQ(made, 2);
    EXPECT_GT(Seconds(listener.heard), 1);
    EXPECT_GT(Pitch(listener.heard), 160) << "the same voice";
    let_go = true;
}

TEST(EspeakLibraryDeathTest, WithoutItsDataThereAreNoVoices) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto folder = std::filesystem::path(testing::TempDir()) / "no_voice_data";
    std::filesystem::create_directories(folder / "espeak-ng-data");
    auto speak_without_data = [&] {
        setenv("ESPEAK_DATA_PATH", folder.c_str(), 1);
        VoiceSpeech voice({}, MakeEspeak);
        auto engine = voice.CreateEngine();
        engine->Speak("nobody hears this", SpeakFlags::wait);
        std::exit(engine->GetVoicesCount());
    };
    EXPECT_EXIT(speak_without_data(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tamlo
