// The set of wave files as it was built: that every file is there, passes the game's check, and
// sounds as its row says. Read by readers of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include "customers/cast.h"
#include "report/measures.h"
#include "sound/effects.h"
#include "sound/wave_inspection.h"

namespace tamlo {
namespace {

std::string BytesOf(std::string_view name) {
    std::ifstream in(std::filesystem::path(SOUND_SET) / (std::string(name) + ".wav"),
                     std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Every file, read once for all tests.
const WaveContent& Wave(std::string_view name) {
    static std::map<std::string_view, WaveContent> waves = [] {
        std::map<std::string_view, WaveContent> all;
        for (const Effect& effect : Effects()) all[effect.name] = InspectWave(BytesOf(effect.name));
        return all;
    }();
    return waves.at(name);
}

double Seconds(const WaveContent& wave) {
    return static_cast<double>(wave.samples.size()) / wave.rate;
}

soundsmith::Sound SoundOf(const Effect& effect) {
    const WaveContent& wave = Wave(effect.name);
    return {wave.rate, wave.samples, effect.loop};
}

soundsmith::VoiceMeasures VoiceOf(std::string_view name) {
    return soundsmith::MeasureVoice(SoundOf(*FindEffect(name)));
}

TEST(SoundSet, HasEveryFileInItsFormat) {
    ASSERT_EQ(Effects().size(), 93u);
    for (const Effect& effect : Effects()) {
        const WaveContent& wave = Wave(effect.name);
        EXPECT_EQ(wave.error, "") << effect.name;
        EXPECT_EQ(wave.channels, 1) << effect.name;
        EXPECT_EQ(wave.rate, effect.rate) << effect.name;
        EXPECT_EQ(wave.bits, effect.bits) << effect.name;
    }
}

TEST(SoundSet, MeetsTheGamesFingerprints) {
    ASSERT_EQ(CheckedEffects().size(), 54U);
    for (const Effect* effect : CheckedEffects()) {
        const std::string bytes = BytesOf(effect->name);
        bool odd = false;
        const FieldCount fields = CountFields(bytes, odd);
        EXPECT_TRUE(std::cmp_equal(bytes.size(), effect->text.size)) << effect->name;
        EXPECT_TRUE(std::cmp_equal(fields.count, effect->text.fields)) << effect->name;
        EXPECT_TRUE(std::cmp_equal(fields.last, effect->text.last)) << effect->name;
        EXPECT_FALSE(odd) << effect->name << " opens a field with a quote";
    }
}

TEST(SoundSet, IsAsLoudAsItsTableSays) {
    for (const Effect& effect : Effects()) {
        const WaveContent& wave = Wave(effect.name);
        if (!wave.error.empty()) continue;  // told by the test above
        double peak = 0, sum = 0;
        for (const double sample : wave.samples) {
            peak = std::max(peak, std::abs(sample));
            sum += sample;
        }
        EXPECT_NEAR(IntegratedLoudness(wave), effect.lufs, 2.0) << effect.name;
        EXPECT_LE(20 * std::log10(peak), -1.0) << effect.name;
        EXPECT_LT(std::abs(sum) / static_cast<double>(wave.samples.size()), 0.01) << effect.name;
    }
}

TEST(SoundSet, HasNoClickAtAnyEnd) {
    for (const Effect& effect : Effects()) {
        const WaveContent& wave = Wave(effect.name);
        if (!wave.error.empty()) continue;
        if (effect.loop) {
            EXPECT_LE(soundsmith::SeamRoughness(SoundOf(effect)), 1.5) << effect.name;
        } else {
            EXPECT_LE(std::abs(wave.samples.front()), 0.02) << effect.name;
            EXPECT_LE(std::abs(wave.samples.back()), 0.02) << effect.name;
        }
    }
}

TEST(SoundSet, LastsAsLongAsTheGameNeeds) {
    struct Limit {
        std::string_view name;
        double at_least, at_most;
        std::string_view why;
    };
    const Limit limits[] = {
        {"tamlo1", 10.0, 20.0, "the title tune plays while the game starts"},
        {"tamlo4", 3.0, 6.0, "a block is driven as long as it sounds"},
        {"tamlo23", 3.44, 4.0, "the ambulance passes in 3.44 seconds"},
        {"tamlo34", 5.5, 6.5, "the truck passes in 6.1 seconds"},
        {"tamlo80", 0.25, 0.4, "a short word"},
        {"tamlo86", 17.2, 18.0, "the bus comes, stops and goes in 17.2 seconds"},
        {"tamlob1", 9.0, 11.0, "backgrounds change at every corner"},
    };
    for (const Limit& limit : limits) {
        EXPECT_GE(Seconds(Wave(limit.name)), limit.at_least) << limit.name << ": " << limit.why;
        EXPECT_LE(Seconds(Wave(limit.name)), limit.at_most) << limit.name << ": " << limit.why;
    }
    for (const soundsmith::Customer& customer : soundsmith::cast) {
        EXPECT_GE(Seconds(Wave(customer.effect)), 0.25) << customer.effect;
        EXPECT_LE(Seconds(Wave(customer.effect)), 2.5) << customer.effect;
    }
}

// Their engines say which of them comes, before the one's brakes and the other's doors do.
TEST(Scenes, TruckAndBusAreToldApartWhileTheyCome) {
    const auto colour = [](const char* name) {
        soundsmith::Sound coming = SoundOf(*FindEffect(name));
        if (coming.rate > 11025) coming = Decimate(coming, 2);
        SetLength(coming, 3.0);
        return soundsmith::MeasureVoice(coming).colour;
    };
    EXPECT_GT(soundsmith::Distance(colour("tamlo34"), colour("tamlo86")), 6.5);
}

TEST(Customers, SpeakAndNothingElseDoes) {
    for (const Effect& effect : Effects()) {
        // Twenty seconds of murmuring guests are voices too, only none of them speaks.
        if (effect.name == "tamlo5") continue;
        const bool is_customer = soundsmith::FindCustomer(effect.name) != nullptr;
        const soundsmith::VoiceMeasures voice = VoiceOf(effect.name);
        EXPECT_EQ(soundsmith::IsSpeech(voice), is_customer)
            << effect.name << ": pitch " << voice.pitch << ", voiced " << voice.voiced
            << ", movement " << voice.movement;
    }
}

TEST(Customers, WomenComeBeforeMenAndHigher) {
    double lowest_woman = 1000, highest_man = 0;
    for (const soundsmith::Customer& customer : soundsmith::cast) {
        const int number = std::atoi(customer.effect.substr(5).data());
        const double pitch = VoiceOf(customer.effect).pitch;
        if (number <= 60) lowest_woman = std::min(lowest_woman, pitch);
        if (number > 60) highest_man = std::max(highest_man, pitch);
    }
    EXPECT_GT(lowest_woman, 1.15 * highest_man);
}

TEST(Customers, SpeakAtTheirOwnPitch) {
    for (const soundsmith::Customer& customer : soundsmith::cast) {
        if (customer.pitch == 0) continue;
        const double pitch = VoiceOf(customer.effect).pitch;
        EXPECT_NEAR(12 * std::log2(pitch / customer.pitch), 0, 3)
            << customer.effect << ": " << pitch;
    }
}

TEST(Customers, AreFortyDifferentPeople) {
    const auto& people = soundsmith::cast;
    std::vector<soundsmith::VoiceMeasures> voices;
    for (const auto& customer : people) voices.push_back(VoiceOf(customer.effect));
    for (std::size_t a = 0; a < people.size(); ++a) {
        for (std::size_t b = 0; b < a; ++b) {
            EXPECT_NE(people[a].greeting, people[b].greeting);
            const double semitones = 12 * std::log2(voices[a].pitch / voices[b].pitch);
            EXPECT_GT(
                std::hypot(soundsmith::Distance(voices[a].colour, voices[b].colour), semitones),
                3.5)
                << people[a].effect << " and " << people[b].effect;
        }
    }
}

}  // namespace
}  // namespace tamlo
