// Voices that crash, hang or stay silent, each in a process of its own.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "linux/voice/guarded_voices.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using State = FamilyReport::State;

/// Does what it is told: by its plan when it opens, by the first word of a text when it speaks.
class Obedient : public Synthesizer {
  public:
    Obedient(std::string plan, std::int16_t level) : plan_(std::move(plan)), level_(level) {}

    int Open() override {
        Do(plan_);
        return plan_ == "missing" ? 0 : 2;
    }
    int Rate(int) const override { return plan_ == "other rate" ? 16000 : 22050; }
    void Synthesize(const Utterance& utterance, const Sink& sink) override {
        if (plan_ == "dies at work") Do("crash");
        if (level_ == first_level) Do(utterance.text.substr(0, utterance.text.find(' ')));
        const bool silent = plan_ == "silent" || utterance.text.starts_with("silent");
        const std::vector<std::int16_t> piece(441, silent ? 0 : level_);
        const bool endless = utterance.text.starts_with("endless") && level_ == first_level;
        for (int i = 0; i < 10 || endless; ++i) {
            if (!sink(piece)) return;
            if (i == 5 && level_ == first_level && utterance.text.starts_with("late-crash")) {
                raise(SIGSEGV);
            }
        }
    }

    static constexpr std::int16_t first_level = 1000;
    static constexpr std::int16_t second_level = 2000;

  private:
    static void Do(const std::string& what) {
        if (what.starts_with("crash")) raise(SIGSEGV);
        if (what == "exit") _exit(1);
        if (what == "hang") std::this_thread::sleep_for(1h);
        if (what == "slow") std::this_thread::sleep_for(400ms);
    }

    const std::string plan_;
    const std::int16_t level_;
};

class Voices {
  public:
    Voices(const std::string& first, const std::string& second)
        : host(std::make_shared<VoiceHost>(std::vector<SynthesizerMaker>{
              [=] { return std::make_unique<Obedient>(first, Obedient::first_level); },
              [=] { return std::make_unique<Obedient>(second, Obedient::second_level); }})),
          reports(std::make_shared<VoiceReports>(std::vector<std::string>{"first", "second"})) {
        GuardedVoiceHooks hooks = {.unspoken = [this](std::string_view text) { unspoken += text; },
                                   .explain = [this](std::string_view) { ++explained; }};
        voices = MakeGuardedVoices(host, reports, {2, 3}, std::move(hooks),
                                   {.opening = 200ms,
                                    .opening_at_all = 5s,
                                    .reopening = 2s,
                                    .sample = 300ms,
                                    .first_text = 300ms});
        count = voices->Open();
    }

    /// Who is heard last in a text: 1, 2 or 0 for the tones.
    int Speaker(const std::string& text, int voice = 0) {
        int loudest = 0;
        voices->Rate(voice);
        voices->Synthesize({text, 0, voice}, [&](auto samples) {
            if (samples.empty()) return true;
            loudest = *std::max_element(samples.begin(), samples.end());
            all += samples.size();
            return all < 22050UL * 60;
        });
        return loudest / 1000;
    }

    std::shared_ptr<VoiceHost> host;
    std::shared_ptr<VoiceReports> reports;
    std::unique_ptr<Synthesizer> voices;
    int count = 0;
    std::string unspoken;
    int explained = 0;
    std::size_t all = 0;
};

TEST(GuardedVoices, SpeakWhateverAFamilyDoesWhenItOpens) {
    struct Case {
        const char* first;
        const char* second;
        int count;
        int speaker;
        State state;  ///< of the first
        int explained;
    };
    const Case cases[] = {
        {"works", "works", 4, 1, State::works, 0},
        {"works", "missing", 2, 1, State::works, 0},
        {"missing", "works", 4, 2, State::missing, 0},
        {"missing", "missing", 0, 0, State::missing, 0},
        {"crash", "works", 4, 2, State::crashed, 1},
        {"exit", "works", 4, 2, State::crashed, 1},
        {"crash", "missing", 0, 0, State::crashed, 0},
        {"crash", "crash", 0, 0, State::crashed, 0},
        {"hang", "works", 4, 2, State::opening, 0},
        {"hang", "missing", 2, 0, State::opening, 0},
        {"works", "hang", 5, 1, State::works, 0},
        {"silent", "works", 4, 2, State::silent, 0},
        {"dies at work", "other rate", 4, 2, State::crashed, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.first) + ", " + c.second);
        const auto begin = std::chrono::steady_clock::now();
        Voices voices(c.first, c.second);
        EXPECT_EQ(voices.count, c.count);
        EXPECT_TRUE(c.speaker == 0 || voices.Speaker("text") == c.speaker);
        EXPECT_EQ(voices.reports->All()[0].state, c.state);
        EXPECT_EQ(voices.explained, c.explained);
        EXPECT_LT(std::chrono::steady_clock::now() - begin, 3s);
    }
}

TEST(GuardedVoices, SpeakWhateverAFamilyDoesWithAText) {
    for (const char* text : {"crash now", "exit now", "late-crash now", "hang now", "silent 1"}) {
        SCOPED_TRACE(text);
        Voices voices("works", "other rate");
        EXPECT_EQ(voices.Speaker("text"), 1);
        EXPECT_EQ(voices.Speaker(text), text[0] == 's' ? 0 : 2);
        EXPECT_EQ(voices.Speaker("text"), 1) << "it has been started again";
        EXPECT_EQ(voices.explained, 0);
    }
    Voices voices("works", "works");
    EXPECT_EQ(voices.Speaker("endless"), 2);
    EXPECT_LT(voices.all, 22050UL * 30);
    EXPECT_EQ(voices.Speaker("text", 2), 2) << "a voice of the second family";
    for (int i = 0; i < 3; ++i) EXPECT_EQ(voices.Speaker("hang"), 2);
    EXPECT_EQ(voices.Speaker("text"), 2) << "three in a row: it is left out";
    EXPECT_EQ(voices.explained, 1);
}

TEST(GuardedVoices, GiveTonesWhereNobodySpeaks) {
    Voices voices("works", "missing");
    voices.Speaker("crash 1");
    EXPECT_EQ(voices.unspoken, "crash 1");
    EXPECT_GT(voices.all, 22050U / 3);
    EXPECT_EQ(voices.Speaker("text"), 1);
}

TEST(GuardedVoices, SpeakAsSoonAsASlowFamilyIsReady) {
    Voices alone("slow", "missing");
    EXPECT_EQ(alone.count, 2);
    EXPECT_EQ(alone.Speaker("text"), 1) << "the text that had to wait";
    EXPECT_EQ(alone.reports->All()[0].state, State::works);

    Voices pair("slow", "works");
    EXPECT_EQ(pair.count, 4);
    EXPECT_EQ(pair.Speaker("text"), 2);
    std::this_thread::sleep_for(1s);
    EXPECT_EQ(pair.Speaker("text"), 1);
}

TEST(GuardedVoices, AreSilentAtOnceWhenATextIsBrokenOff) {
    Voices voices("works", "works");
    for (const char* text : {"endless", "text"}) {
        int pieces = 0;
        voices.voices->Rate(0);
        voices.voices->Synthesize({text, 0, 0}, [&](auto) { return ++pieces < 3; });
        EXPECT_EQ(pieces, 3) << text;
    }
    EXPECT_EQ(voices.Speaker("text"), 1);
    // Texts in quick succession are no reason to wait for one that hangs.
    for (int i = 0; i < 30; ++i) {
        int left = 3;
        voices.voices->Synthesize({"hang", 0, 0}, [&](auto) { return --left > 0; });
    }
    EXPECT_EQ(voices.reports->All()[0].state, State::hung);
}

TEST(VoiceHost, EndsWithItsSpeakers) {
    auto host = std::make_shared<VoiceHost>(std::vector<SynthesizerMaker>{
        [] { return std::make_unique<Obedient>("hang", Obedient::first_level); }});
    ASSERT_TRUE(host->Running());
    const VoiceHost::Speaker speaker = host->Start(0);
    host.reset();
    char byte = 0;
    EXPECT_EQ(::read(speaker.socket.Number(), &byte, 1), 0) << "nobody holds the other end";
}

}  // namespace
}  // namespace tamlo
