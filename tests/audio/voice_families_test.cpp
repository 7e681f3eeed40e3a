// What all voices have in common with the first, and what their numbers mean.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <time.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "audio/voice/sentences.h"
#include "audio/voice/synthesizer.h"
#include "audio/voice/voices.h"

namespace tamlo {
namespace {

using testing::ElementsAre;

std::vector<std::string> Sentences(std::string_view text) {
    std::vector<std::string> texts;
    for (const Sentence& sentence : SentencesOf(text)) texts.push_back(sentence.text);
    return texts;
}

TEST(SentencesOf, AreWordsWithTheirMarks) {
    struct Case {
        const char* text;
        std::vector<std::string> sentences;
    };
    const Case cases[] = {
        {" select ", {"select."}},
        {"Who is it?  Ah (\"you\")!", {"Who is it?", "Ah you."}},
        {"St. Mark's Road, and 3 tamlos; 21st & 112th",
         {"St. Mark's Road, and three tamlos, "
          "twenty first and one hundred twelfth."}},
        {"1850 dollars, -5, 1,234,567, 0.05, 007 or 1234567890123",
         {"one thousand eight hundred fifty dollars, minus five, one million two hundred thirty "
          "four thousand five hundred sixty seven,",
          "zero point zero five, zero zero seven or one two three four five six seven eight nine "
          "zero one two three."}},
        {"Caf\u00E9 \u0141\u00F3d\u017A, Stra\u00DFe \u2026 50%",
         {"Cafe lodz, Strasse.", "fifty percent."}},
        {"'", {"apostrophe."}},
        {"\u00BE", {"three quarters."}},
        {"\u0416", {"character."}},
        {" ", {}},
        {".., --", {}},
    };
    for (const Case& c : cases) EXPECT_EQ(Sentences(c.text), c.sentences) << c.text;
}

TEST(SentencesOf, AreShortWhateverTheText) {
    for (const std::string unit : {"a", "9", "and ", "so, ", "1,", "x'"}) {
        std::string text;
        while (text.size() < 20'000) text += unit;
        for (const Sentence& sentence : SentencesOf(text)) {
            ASSERT_LE(sentence.text.size(), 202u) << unit;
            ASSERT_LE(std::count(sentence.text.begin(), sentence.text.end(), ' '), 23) << unit;
        }
    }
}

/// Speaks as many samples as the text says and its voice's number.
class Counting : public Synthesizer {
  public:
    Counting(int voices, int rate) : voices_(voices), rate_(rate) {}
    int Open() override { return voices_; }
    int Rate(int) const override { return rate_; }
    void Synthesize(const Utterance& utterance, const Sink& sink) override {
        sink(std::vector<std::int16_t>(static_cast<std::size_t>(utterance.voice) + 1));
    }

  private:
    int voices_;
    int rate_;
};

TEST(VoiceNumbers, MeanTheSameVoiceWhateverIsInstalled) {
    struct Case {
        int of_first;
        int of_second;
        std::vector<int> rates;  ///< of the voices in turn: whose they are
        std::vector<int> numbers;
    };
    const Case cases[] = {
        {3, 2, {100, 100, 100, 200, 200}, {0, 1, 2, 0, 1}},
        {3, 0, {100, 100, 100}, {0, 1, 2}},
        {0, 2, {200, 200, 200, 200, 200}, {0, 0, 0, 0, 1}},
        {0, 0, {}, {}},
    };
    for (const Case& c : cases) {
        const auto joined = JoinFamilies(std::make_unique<Counting>(c.of_first, 100), 3,
                                         std::make_unique<Counting>(c.of_second, 200));
        ASSERT_EQ(joined->Open(), static_cast<int>(c.rates.size()));
        for (std::size_t i = 0; i < c.rates.size(); ++i) {
            const int voice = static_cast<int>(i);
            EXPECT_EQ(joined->Rate(voice), c.rates[i]) << i;
            joined->Synthesize({"text", 0, voice}, [&](auto samples) {
                EXPECT_EQ(static_cast<int>(samples.size()), c.numbers[i] + 1) << i;
                return true;
            });
        }
    }
}

TEST(Flite, HasNoVoicesWithoutItsLibrary) {
    EXPECT_EQ(MakeFlite("libflite-that-is-not-installed.so.1")->Open(), 0);
}

double ProcessorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

class AllVoices : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(voices_->Open(), 13); }

    std::unique_ptr<Synthesizer> voices_ = MakeVoices();
};

// On an idle machine it is a fifth of this. Time is the processor's: others may be using it, too.
TEST_F(AllVoices, AreHeardSoonAndAskedOftenWhetherToGoOn) {
    constexpr double most = 0.05;
    const std::string text =
        " You are at the corner of Lovelace Street and Willow Road and the way to the restaurant "
        "from here is seven streets north and eleven roads west of where your vehicle stands ";
    for (int voice = 0; voice < 13; ++voice) {
        voices_->Prepare(voice);
        double last = ProcessorSeconds();
        int loudest = 0;
        voices_->Synthesize({text, 0, voice}, [&](auto samples) {
            const double now = ProcessorSeconds();
            EXPECT_LT(now - last, most) << voice;
            last = now;
            for (const int sample : samples) loudest = std::max(loudest, std::abs(sample));
            return true;
        });
        EXPECT_GT(loudest, 5000) << voice;
    }
}

TEST_F(AllVoices, TakeAsLongAsTheFirst) {
    auto seconds = [&](int voice, int rate) {
        std::size_t samples = 0;
        voices_->Synthesize({"The customer gives you twenty dollars and tells you to keep the "
                             "change.",
                             rate, voice},
                            [&](auto some) {
                                samples += some.size();
                                return true;
                            });
        return static_cast<double>(samples) / voices_->Rate(voice);
    };
    for (int rate : {-10, 0, 5, 10}) {
        const double first = seconds(0, rate);
        for (int voice = 10; voice < 13; ++voice) {
            EXPECT_NEAR(seconds(voice, rate) / first, 1, 0.1) << voice << " at " << rate;
        }
    }
}

}  // namespace
}  // namespace tamlo
