// The vocabulary of the recipes: loops without a seam, levels, pitch and passing; and the writer of
// files for sounds of any length.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "chance.h"
#include "filters.h"
#include "finish.h"
#include "loudness.h"
#include "report/measures.h"
#include "sound/wave_inspection.h"
#include "vocabulary/engine_kinds.h"
#include "vocabulary/instruments.h"
#include "vocabulary/pass_by.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"
#include "wave_writer.h"

namespace tamlo {
namespace {

using namespace soundsmith;

constexpr int test_rate = 22050;

Sound Noise(double seconds, bool loop) {
    Chance chance("noise");
    Sound sound = WhiteNoise(test_rate, seconds, chance);
    sound.loop = loop;
    return sound;
}

Sound Part(const Sound& sound, double from, double to) {
    const auto at = [&](double seconds) {
        return sound.samples.begin() + static_cast<std::ptrdiff_t>(FramesIn(seconds, sound.rate));
    };
    return {sound.rate, {at(from), at(to)}, false};
}

// By counting the upward crossings of zero.
double Pitch(const Sound& sound) {
    int crossings = 0;
    std::size_t first = 0, last = 0;
    for (std::size_t i = 1; i < sound.samples.size(); ++i) {
        if (sound.samples[i - 1] >= 0.0 || sound.samples[i] < 0.0) continue;
        if (crossings++ == 0) first = i;
        last = i;
    }
    return (crossings - 1) * sound.rate / static_cast<double>(last - first);
}

TEST(Mixing, GoesRoundALoopAndOverTheEndsOfNothingElse) {
    const Sound three{test_rate, {1, 2, 3}, false};
    struct Row {
        bool loop;
        int at;
        std::vector<double> expected;
    };
    for (const Row& row : {Row{false, 1, {0, 1, 2, 3}},
                           {false, 3, {0, 0, 0, 1}},
                           {false, -1, {2, 3, 0, 0}},
                           {false, 9, {0, 0, 0, 0}},
                           {true, 3, {2, 3, 0, 1}},
                           {true, -1, {2, 3, 0, 1}},
                           {true, 10, {3, 0, 1, 2}}}) {
        Sound onto{test_rate, {0, 0, 0, 0}, row.loop};
        MixAt(onto, three, static_cast<double>(row.at) / test_rate);
        EXPECT_EQ(onto.samples, row.expected) << row.loop << ' ' << row.at;
    }
    Sound other{8000, {0}, false};
    EXPECT_THROW(MixAt(other, three, 0.0), std::logic_error);
}

TEST(Curves, RunThroughTheirPoints) {
    const Curve curve{{1.0, 10.0}, {2.0, 20.0}, {4.0, 0.0}};
    for (const auto& [time, value] : std::vector<std::pair<double, double>>{{0.0, 10.0},
                                                                            {1.0, 10.0},
                                                                            {1.5, 15.0},
                                                                            {2.0, 20.0},
                                                                            {3.0, 10.0},
                                                                            {4.0, 0.0},
                                                                            {9.0, 0.0}})
        EXPECT_DOUBLE_EQ(curve(time), value) << time;
    EXPECT_DOUBLE_EQ(Curve(7.0)(123.0), 7.0);
}

// What is done to a loop may not depend on where in its round the file begins.
TEST(Loops, SoundTheSameWhereverTheyBegin) {
    const std::vector<std::pair<const char*, std::function<void(Sound&)>>> operations{
        {"low-pass", [](Sound& sound) { LowPass(sound, 300); }},
        {"high-pass", [](Sound& sound) { HighPass(sound, 60); }},
        {"resonance", [](Sound& sound) { BandPass(sound, 900, 30); }},
        {"moving low-pass", [](Sound& sound) { MovingLowPass(sound, 800); }},
        {"room", [](Sound& sound) { AddRoom(sound, hallway); }},
        {"speed", [](Sound& sound) { sound = AtSpeed(sound, 0.5); }},
        {"limiter", [](Sound& sound) { LevelTo(sound, -8, -6); }},
        {"decimation", [](Sound& sound) { sound = Decimate(sound, 2); }},
    };
    const Sound loop = Noise(2.0, true);
    Sound turned = loop;
    const std::ptrdiff_t turn = 10000;
    std::rotate(turned.samples.begin(), turned.samples.begin() + turn, turned.samples.end());
    for (const auto& [name, operation] : operations) {
        Sound one = loop, other = turned;
        operation(one);
        operation(other);
        const auto size = static_cast<std::ptrdiff_t>(one.samples.size());
        std::rotate(
            other.samples.begin(),
            other.samples.end() - turn * size / static_cast<std::ptrdiff_t>(loop.samples.size()),
            other.samples.end());
        double worst = 0.0;
        for (std::size_t i = 0; i < one.samples.size(); ++i)
            worst = std::max(worst, std::abs(one.samples[i] - other.samples[i]));
        EXPECT_LT(worst, 0.003 * Peak(one)) << name;
    }
}

TEST(Levels, MeetTheirTargetAndNeverPassTheirPeak) {
    Sound spiky = Noise(2.0, false);
    for (std::size_t i = 0; i < spiky.samples.size(); i += 5000) spiky.samples[i] = 9.0;
    for (const double lufs : {-34.0, -18.0, -12.0}) {
        Sound sound = spiky;
        LevelTo(sound, lufs, -2.0);
        EXPECT_NEAR(Loudness(sound), lufs, 0.5);
        EXPECT_LE(Peak(sound), FromDecibels(-2.0) + 1e-9);
    }
    Sound silence = Silence(test_rate, 1.0);
    LevelTo(silence, -18.0, -2.0);
    EXPECT_EQ(Peak(silence), 0.0);
}

TEST(Decimation, KeepsWhatTheFileCanHoldAndNothingElse) {
    struct Row {
        double hz, at_least, at_most;  // decibels
    };
    for (const Row& row :
         {Row{100, -0.1, 0.1}, {9500, -0.5, 0.1}, {13000, -200, -60}, {18000, -200, -60}}) {
        const Sound tone = Tone(44100, 1.0, row.hz, {1.0});
        const double level = ToDecibels(Peak(Part(Decimate(tone, 2), 0.2, 0.8)));
        EXPECT_GE(level, row.at_least) << row.hz;
        EXPECT_LE(level, row.at_most) << row.hz;
    }
}

TEST(Passing, BendsThePitchAndIsLoudestAtItsNearest) {
    const Sound horn = Tone(44100, 10.0, 500, {1.0});
    const Sound heard = Passing(horn, {5.0, 30.0, 5.0}, 10.0);
    EXPECT_NEAR(Pitch(Part(heard, 0.5, 2.0)), 500 * 343 / (343 - 30.0), 2.0);
    EXPECT_NEAR(Pitch(Part(heard, 8.0, 9.5)), 500 * 343 / (343 + 30.0), 2.0);
    const double nearest = Loudness(Part(heard, 4.7, 5.3));
    EXPECT_GT(nearest, Loudness(Part(heard, 3.0, 4.0)) + 6.0);
    EXPECT_GT(nearest, Loudness(Part(heard, 6.0, 7.0)) + 6.0);
}

TEST(Engines, FireAsOftenAsTheyTurnAndFitTheirLoop) {
    Chance chance("engine");
    Sound like = Silence(44100, 2.0);
    like.loop = true;
    // 14.8 turns a second are 29.6 in the loop: 30 are made of it, fifteen a second.
    EngineKind kind = truck_engine;
    kind.cycle = EvenFirings({1.0});
    kind.uneven = 0.0;
    const Sound engine = RunEngine(kind, like, 14.8, 1.0, chance);
    EXPECT_LE(SeamRoughness(engine), 1.5);
    const auto period = static_cast<std::size_t>(44100 / 15);
    double same = 0.0, all = 0.0;
    for (std::size_t i = 0; i < engine.samples.size(); ++i) {
        same += engine.samples[i] * engine.samples[(i + period) % engine.samples.size()];
        all += engine.samples[i] * engine.samples[i];
    }
    EXPECT_GT(same, 0.8 * all);
}

TEST(Instruments, AreInTune) {
    Chance chance("tune");
    for (const auto& [name, hz] : std::vector<std::pair<const char*, double>>{
             {"a4", 440.0}, {"c4", 261.63}, {"f#4", 369.99}, {"bb3", 233.08}, {"c6", 1046.5}})
        EXPECT_NEAR(NoteHz(name), hz, 0.01) << name;
    for (const char* name : {"", "h4", " 4", "a", "4"})
        EXPECT_THROW(NoteHz(name), std::logic_error) << name;
    for (const double hz : {98.0, 196.0, 311.0})
        EXPECT_NEAR(MeasureVoice(PluckedString(32000, hz, 1.0, 0.5, chance)).pitch, hz, 0.01 * hz);
}

// Firings a second of an engine, not far from `hz`: where its envelope is most like itself.
double FiringRate(Sound engine, double hz) {
    for (double& sample : engine.samples) sample = std::abs(sample);
    LowPass(engine, 200);
    HighPass(engine, 10);
    double best = 0.0, rate = 0.0;
    const std::vector<double>& wave = engine.samples;
    const auto longest = static_cast<std::size_t>(1.43 * engine.rate / hz);
    for (auto lag = static_cast<std::size_t>(0.7 * engine.rate / hz); lag <= longest; ++lag) {
        double alike = 0.0;
        for (std::size_t i = 0; i + longest < wave.size(); ++i) alike += wave[i] * wave[i + lag];
        if (alike <= best) continue;
        best = alike;
        rate = static_cast<double>(engine.rate) / static_cast<double>(lag);
    }
    return rate;
}

// The idle must take over without a step, and the way there must be worth hearing.
TEST(Vehicles, StartAndPullAwayEndWhereTheIdleBegins) {
    struct Row {
        const char *start, *away, *idle;
        double hz;
    };
    for (const Row& row : {Row{"tamlo2", "tamlo4", "tamlo3", 25},
                           {"tamlo26", "tamlo28", "tamlo27", 30},
                           {"tamlo30", "tamlo32", "tamlo31", 40}}) {
        const Sound idle = MakeSound(*FindEffect(row.idle));
        const double level = Loudness(idle), rate = FiringRate(idle, row.hz);
        for (const char* name : {row.start, row.away}) {
            const Sound sound = MakeSound(*FindEffect(name));
            const Sound end = Part(sound, sound.Seconds() - 0.3, sound.Seconds());
            EXPECT_NEAR(Loudness(end), level, 3.0) << name;
            EXPECT_LT(std::abs(12 * std::log2(FiringRate(end, row.hz) / rate)), 1.2) << name;
            EXPECT_GT(Loudness(sound), level + 12.0) << name;
        }
    }
}

TEST(WaveFiles, MeetTheirFingerprintAtAnyLength) {
    for (const char* name :
         {"tamlo4", "tamlo18", "tamlo80", "tamlo81", "tamlo85", "tamlo87", "tamlob2"}) {
        const Effect& effect = *FindEffect(name);
        const std::size_t room = RoomFor(effect);
        for (const std::size_t length :
             {std::size_t{1}, room / 2, room / 2 + 1, room - 1, room, room + 100}) {
            const Sound sound{effect.rate, std::vector<double>(length, 0.1), effect.loop};
            const std::string bytes = WaveFile(effect, sound);
            bool odd = false;
            const FieldCount fields = CountFields(bytes, odd);
            const WaveContent wave = InspectWave(bytes);
            EXPECT_EQ(wave.error, "") << name << ' ' << length;
            EXPECT_EQ(bytes.size(), static_cast<std::size_t>(effect.text.size))
                << name << ' ' << length;
            EXPECT_EQ(fields.count, static_cast<std::size_t>(effect.text.fields))
                << name << ' ' << length;
            EXPECT_EQ(fields.last, static_cast<std::size_t>(effect.text.last))
                << name << ' ' << length;
            EXPECT_FALSE(odd) << name << ' ' << length;
            EXPECT_GE(wave.samples.size(), std::min(length, room)) << name << ' ' << length;
        }
    }
    EXPECT_THROW(WaveFile(*FindEffect("tamlo4"), Silence(8000, 1.0)), std::logic_error);
}

}  // namespace
}  // namespace tamlo
