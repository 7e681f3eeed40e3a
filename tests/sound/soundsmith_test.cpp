// soundsmith's instruments on sounds whose measures are known, and its workshop: the same bytes
// every time, and only what is missing or spoilt made again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <numbers>

#include "chance.h"
#include "customers/speak.h"
#include "loudness.h"
#include "recipes.h"
#include "report/measures.h"
#include "report/report.h"
#include "sound/wave_inspection.h"
#include "temporary_folder.h"
#include "wave_reader.h"
#include "wave_writer.h"
#include "workshop.h"

namespace tamlo {
namespace {

using namespace soundsmith;

constexpr int test_rate = 22050;

Sound Sine(double hertz, double seconds, double height = 1.0, double offset = 0.0) {
    Sound sound = Silence(test_rate, seconds);
    for (std::size_t i = 0; i < sound.samples.size(); ++i) {
        const double phase = 2 * std::numbers::pi * hertz * static_cast<double>(i) / test_rate;
        sound.samples[i] = offset + height * std::sin(phase);
    }
    return sound;
}

Sound Noise(double seconds) {
    Sound sound = Silence(test_rate, seconds);
    Chance chance("noise");
    for (double& sample : sound.samples) sample = 0.3 * chance.Noise();
    return sound;
}

Sound Loop(Sound sound) {
    sound.loop = true;
    return sound;
}

TEST(Instruments, AgreeWithWhatIsKnown) {
    // The reference of the loudness scale: a full sine of 997 hertz has -3.01 LUFS.
    EXPECT_NEAR(Loudness(Sine(997, 2.0)), -3.01, 0.1);
    EXPECT_NEAR(Loudness(Sine(997, 2.0, 0.1)), -23.01, 0.1);
    EXPECT_NEAR(IntegratedLoudness({"", 1, test_rate, 16, Sine(997, 2.0).samples}), -3.01, 0.1);
    EXPECT_NEAR(PeakLevel(Sine(500, 1.0, 0.5)), -6.02, 0.05);
    EXPECT_NEAR(DcShare(Sine(500, 1.0, 0.5, 0.02)), 2.0, 0.01);
    EXPECT_NEAR(MeasureVoice(Sine(123, 1.0)).pitch, 123, 1.0);
    EXPECT_EQ(MeasureVoice(Noise(1.0)).pitch, 0);
}

TEST(Instruments, TwoLoudnessMetersAgree) {
    for (const Sound& sound : {Noise(0.2), Noise(3.0), Sine(60, 1.0), Sine(5000, 1.0, 0.2),
                               Append(Noise(2.0), Silence(test_rate, 5.0))}) {
        const double other = IntegratedLoudness({"", 1, sound.rate, 16, sound.samples});
        EXPECT_NEAR(Loudness(sound), other, 0.2);
    }
}

TEST(Instruments, TellAClickFromASeamlessLoop) {
    EXPECT_LT(SeamRoughness(Loop(Sine(100, 1.0))), 1.1);
    EXPECT_LT(SeamRoughness(Loop(Noise(1.0))), 1.5);
    EXPECT_GT(SeamRoughness(Loop(Sine(100.25, 1.0))), 3.0);
    EXPECT_EQ(SeamRoughness(Sine(100.25, 1.0)), 0.0);
}

TEST(Instruments, TakeNoToneAndNoNoiseForSpeech) {
    EXPECT_FALSE(IsSpeech(MeasureVoice(Sine(150, 1.0))));
    EXPECT_FALSE(IsSpeech(MeasureVoice(Noise(1.0))));
    EXPECT_FALSE(IsSpeech(MeasureVoice(Silence(test_rate, 1.0))));
    EXPECT_FALSE(IsSpeech(MeasureVoice(Sound{test_rate, {}, false})));
}

TEST(WaveReader, RefusesWhatIsNoWaveFile) {
    const Effect& effect = *FindEffect("tamlo50");
    const std::string good = WaveFile(effect, Sine(200, 0.1));
    ASSERT_EQ(ReadWave(good).samples.size(), 2205u);
    // Cut anywhere, it is refused or read as far as it goes, and never read beyond its end.
    for (std::size_t length = 0; length < 60; ++length)
        EXPECT_ANY_THROW(ReadWave(std::string_view(good).substr(0, length))) << length;
}

TEST(Speaking, IsTheSameWhateverTheUsersHomeHolds) {
    const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "/";
    TemporaryFolder other;
    other.Write(".festivalrc", "(Parameter.set 'Duration_Stretch 2)\n");
    for (const char* name : {"tamlo56", "tamlo71"}) {  // festival and praat; espeak-ng
        const Customer& guest = *FindCustomer(name);
        const Sound before = Speak(guest);
        ::setenv("HOME", other.Path().c_str(), 1);
        const Sound again = Speak(guest);
        ::setenv("HOME", home.c_str(), 1);
        EXPECT_EQ(again.samples, before.samples) << name;
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(other.Path()), {}), 1);
}

TEST(Speaking, FailsInWordsForWhatNoVoiceCanSay) {
    Customer nobody = cast[4];
    nobody.speaker = "no-such-speaker";
    EXPECT_THROW(Speak(nobody), std::runtime_error);
    EXPECT_THROW(Speak(*FindCustomer("tamlo52"), "\u041f\u0440"), std::runtime_error);
}

TEST(Workshop, MakesTheSameBytesAgain) {
    TemporaryFolder first, second;
    std::vector<const Effect*> effects;
    for (const char* name : {"tamlo42", "tamlo58", "tamlo63", "tamlo71", "tamlo80", "tamlo85"})
        effects.push_back(FindEffect(name));
    EXPECT_TRUE(Workshop(first.Path()).Make(effects, {}).failures.empty());
    std::reverse(effects.begin(), effects.end());
    EXPECT_TRUE(Workshop(second.Path()).Make(effects, {}).failures.empty());
    for (const Effect* effect : effects) {
        const std::string name = std::string(effect->name) + ".wav";
        EXPECT_GT(first.Content(name).size(), 1000u) << name;
        EXPECT_TRUE(first.Content(name) == second.Content(name)) << name;
    }
}

TEST(Workshop, MakesOnlyWhatIsMissingOrSpoilt) {
    TemporaryFolder folder;
    for (const auto& entry : std::filesystem::directory_iterator(SOUND_SET))
        if (entry.path().extension() == ".wav" || entry.path().filename() == ".soundsmith")
            std::filesystem::copy(entry.path(), folder.Path());
    Workshop workshop(folder.Path());
    ASSERT_EQ(workshop.MakeSet({}).made, 0);

    const std::string whole = folder.Content("tamlo42.wav");
    std::filesystem::remove(folder / "tamlo80.wav");
    folder.Write("tamlo42.wav", whole.substr(0, 100));
    const SetResult result = workshop.MakeSet({});
    EXPECT_EQ(result.made, 2);
    EXPECT_TRUE(result.failures.empty());
    EXPECT_TRUE(folder.Content("tamlo42.wav") == whole);
    EXPECT_EQ(folder.Content("tamlo80.wav").size(), 4454u);
}

TEST(Report, NamesWhatIsMissing) {
    TemporaryFolder set, report;
    std::filesystem::copy(std::filesystem::path(SOUND_SET) / "tamlo80.wav", set.Path());
    set.Write("tamlo3.wav", "RIFF and no more");
    EXPECT_EQ(WriteReport(set.Path(), report.Path()), 92);
    const std::string text = report.Content("report.txt");
    EXPECT_THAT(text, testing::HasSubstr("93 sounds, 92 outside their limits."));
    EXPECT_THAT(text, testing::ContainsRegex("tamlo3 .*not a wave file"));
    EXPECT_THAT(text, testing::ContainsRegex("tamlo9 .*the file is missing"));
    EXPECT_THAT(text, testing::ContainsRegex("tamlo80 .*good"));
    EXPECT_THAT(report.Content("report.html"), testing::HasSubstr("sounds/tamlo80.wav"));
    EXPECT_EQ(report.Content("pictures/tamlo80-spectrogram.png").substr(1, 3), "PNG");
}

}  // namespace
}  // namespace tamlo
