// Rehearsals: the lines of their traces, the moments of their steps, and the exactness of their
// clock.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "linux/fake_game.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(Rehearsal, WritesSpeechAtItsTimes) {
    const auto trace = Rehearse("", [](FakeGame& game) {
                           game.voice->SetVoice(2);
                           game.voice->SetVoice(3);
                           game.voice->SetRate(-10);
                           game.voice->SetVolume(90);
                           game.Queue("one");
                           game.Say("zw\xC3\xB6lf");     // five characters after three
                           game.Queue("a \"b\"\\\r\n");  // seven
                           game.WaitForSpeech();
                           game.Queue("dropped");
                           game.Hush();
                           game.Hush();
                           game.Wait(0.2);
                           game.voice = game.platform.speech.CreateEngine();
                           game.WaitForKey();
                       }).trace;
    EXPECT_EQ(trace,
              "0.000 engine\n"
              "0.000 voice 2\n"
              "0.000 rate -10\n"
              "0.000 volume 90\n"
              "0.000 say2 \"one\"\n"
              "0.000 say \"zw\xC3\xB6lf\"\n"
              "0.400 say2 \"a \\\"b\\\"\\\\\\r\\n\"\n"
              "0.800 say2 \"dropped\"\n"
              "0.800 hush\n"
              "0.800 hush\n"
              "1.010 engine\n"
              "7.010 rest\n");
}

TEST(Rehearsal, WritesSoundsAtTheirTimes) {
    const auto trace = Rehearse("after 0.2 a", [](FakeGame& game) {
                           game.Load("tune");
                           game.sound->SetVolume(10);
                           game.sound->SetPan(-20000);
                           game.sound->SetFrequency(game.sound->GetFrequency() * 2);
                           game.sound->Play(PlayMode::once);
                           game.WaitForSound();              // until the key at 0.2, of 0.5 s
                           game.sound->SetFrequency(16001);  // 9600 frames are left
                           game.sound->Stop();
                           game.Wait(0.1);
                           game.sound->Play(PlayMode::once);  // continues where it stopped
                           game.key = 0;
                           game.WaitForSound();
                           game.sound->Stop();
                           game.sound->Play(PlayMode::looping);
                           game.Load("nothing");
                           game.sound->Play(PlayMode::once);
                           game.WaitForSound();
                           game.sound->Stop();
                           game.Load("bell");
                           game.sound->Play(PlayMode::looping);
                       }).trace;
    EXPECT_EQ(trace,
              "0.000 engine\n"
              "0.000 load tune\n"
              "0.000 setvolume tune 10\n"
              "0.000 setpan tune -20000\n"
              "0.000 setfrequency tune 16000\n"
              "0.000 play tune once frequency 16000 volume 10 pan -20000\n"
              "0.200 key 65\n"
              "0.200 setfrequency tune 16001\n"
              "0.200 stop tune\n"
              "0.310 play tune once frequency 16001 volume 10 pan -20000\n"
              "0.610 play tune loop frequency 16001 volume 10 pan -20000\n"
              "0.610 load nothing missing\n"
              "0.610 stop tune\n"
              "0.610 load bell\n"
              "0.610 play bell loop frequency 22050 volume 0 pan 0\n"
              "0.610 end\n");
}

TEST(Rehearsal, KeepsALoopsPlaceAndEndsAtTheFirstTurnAfter) {
    std::vector<double> left;
    Rehearse("", [&](FakeGame& game) {
        game.Load("tune");
        game.sound->SetCurrentPosition(9000);  // past the end: from the start
        game.sound->Play(PlayMode::looping);
        game.Wait(2.24);
        game.sound->Stop();
        game.sound->Play(PlayMode::once);
        left.push_back(game.sound->SecondsLeft());
        game.WaitForSound();
        left.push_back(game.sound->SecondsLeft());
        game.sound->SetCurrentPosition(7999);
        game.sound->Play(PlayMode::once);
        left.push_back(game.sound->SecondsLeft());
        game.Turn();
        left.push_back(game.sound->GetStatus());
        game.sound->Play(PlayMode::once);  // is at the start again
        left.push_back(game.sound->SecondsLeft());
    });
    EXPECT_THAT(left, ElementsAre(0.75, 0, 1 / 8000.0, 0, 1));
}

TEST(Rehearsal, NothingFollowsTheLastLine) {
    const Play play = [](FakeGame& game) {
        game.Load("tune");
        game.sound->Play(PlayMode::looping);
        const auto local = game.system->CreateBufferFromFile("bell", {224});
        local->Play(PlayMode::looping);
        if (game.WaitForKey() == 27) throw EndOfProcess{7, "not the rehearsal's concern"};
    };
    EXPECT_EQ(Rehearse("", play).Events().back(), "rest");
    const auto ended = Rehearse("press escape\nset cash 1", play);
    EXPECT_EQ(ended.Events().back(), "end");
    EXPECT_EQ(ended.exit_status, 0);
    EXPECT_EQ(ended.Count("stop"), 0);
}

/// Waits for keys forever, and says which came.
void EchoKeys(FakeGame& game) {
    for (;;) game.Say("got " + std::to_string(game.WaitForKey()));
}

TEST(Rehearsal, PressesAtRest) {
    const Play play = [](FakeGame& game) {
        game.Load("tune");
        game.sound->Play(PlayMode::once);
        game.WaitForKey();  // 1 + 6 s
        game.Queue("four");
        game.WaitForKey();  // 0.2 + 6 s
        game.Wait(3);
        game.platform.random.Next();
        game.Wait(5);  // asking for the clock and a status does not count
        game.voice->Status();
        game.Wait(5);
        game.Say("yes");
        game.WaitForKey();  // 0.15 + 6 s
    };
    const auto performance = Rehearse("press a b", play);
    EXPECT_DOUBLE_EQ(performance.TimeOf("key 65"), 7);
    EXPECT_DOUBLE_EQ(performance.TimeOf("key 66"), 13.2);
    EXPECT_DOUBLE_EQ(performance.lines.back().seconds, 13.2 + 3.01 + 6);
    // A game that does nothing after a key is at rest again.
    const auto deaf = Rehearse("press a b", [](FakeGame& game) {
        for (;;) game.Turn();
    });
    EXPECT_DOUBLE_EQ(deaf.TimeOf("key 65"), 6);
    EXPECT_DOUBLE_EQ(deaf.TimeOf("key 66"), 12);
}

TEST(Rehearsal, PressesUponSpeechAndSound) {
    const auto performance = Rehearse(
        "upon \"second\" a\n"   // begins after the first, at 0.25
        "upon \"dropped\" b\n"  // not the first, which is never heard, but the next
        "upon sound bell c\n"
        "after 0 d\n"  // in the same turn
        "after 0.456 e\n"
        "upon \"long\" f\n",  // during a blocking utterance: waits for the next turn
        [](FakeGame& game) {
            game.Queue("first");
            game.Queue("the second one");
            game.WaitForKey();
            game.Hush();
            game.Wait(1);
            game.Queue("talk");
            game.Queue("dropped");
            game.Hush();
            game.Load("bell");
            game.sound->Play(PlayMode::once);
            game.Wait(1);
            game.Queue("not dropped");
            game.WaitForKey();
            game.sound->Play(PlayMode::once);
            game.WaitForKey();
            game.WaitForKey();
            game.Say("a long utterance");
            EchoKeys(game);
        });
    std::vector<TraceLine> keys;
    for (const TraceLine& line : performance.lines) {
        if (line.event.starts_with("key") || line.event.starts_with("say \"got")) {
            keys.push_back(line);
        }
    }
    EXPECT_THAT(keys, ElementsAre(TraceLine{0.35, "key 65"}, TraceLine{2.47, "key 66"},
                                  TraceLine{2.57, "key 67"}, TraceLine{2.57, "key 68"},
                                  TraceLine{3.03, "key 69"}, TraceLine{3.84, "key 70"},
                                  TraceLine{3.84, "say \"got 70\""}));
    EXPECT_EQ(performance.Events().back(), "rest");
}

TEST(Rehearsal, DrawsUnevenlyButAlwaysTheSame) {
    std::vector<double> draws;
    const Play play = [&](FakeGame& game) {
        Random& random = game.platform.random;
        for (int seeding = 0; seeding < 2; ++seeding) {
            random.Seed(43200.5);
            for (int i = 0; i < 1000; ++i) draws.push_back(random.Next());
        }
    };
    Rehearse("", play);
    const auto first = std::exchange(draws, {});
    Rehearse("", play);
    EXPECT_EQ(draws, first);
    EXPECT_NE(draws[0], draws[1000]);  // the same seed twice
    double sum = 0;
    for (const double draw : draws) {
        ASSERT_TRUE(draw >= 0 && draw < 1);
        sum += draw;
    }
    EXPECT_NEAR(sum / 2000, 0.5, 0.03);
}

TEST(Rehearsal, ClockCrossesMidnightAndTheLeapDay) {
    Rehearse("clock 2016-02-28 23:59:59", [](FakeGame& game) {
        const Clock& clock = game.platform.clock;
        EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 86399);
        game.Wait(0.98);
        EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 86399.99);
        game.Turn();
        EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 0);
        EXPECT_EQ(clock.Today().month * 100 + clock.Today().day, 229);
        game.Say(std::string(61 * 20, 'x'));
        EXPECT_EQ(clock.Now().minute * 100 + clock.Now().second, 101);
    });
}

TEST(Rehearsal, GivesUpAfterAnHourInVain) {
    struct Case {
        std::string_view name;
        std::string_view script;
        Play play;
        std::string_view message;
    };
    const Play restless = [](FakeGame& game) {
        for (;;) {
            game.Wait(5);
            game.Hush();
        }
    };
    const Case cases[] = {
        {"no rest for a key", "after 10 a\npress b", restless, "line 2 waits for the game to come"},
        {"no rest for the end", "", restless, "the end of the script waits for the game to come"},
        {"nothing heard", "\nupon \"hello\" b", EchoKeys, "line 2 waits for an utterance with"},
        {"nothing played", "upon sound bell b", EchoKeys, "line 1 waits for the sound bell"},
        {"never a turn", "press b",
         [](FakeGame& game) {
             for (;;) game.Say("talking on");
         },
         "line 1 waits for the game to come"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const auto performance = Rehearse(c.script, c.play);
        EXPECT_EQ(performance.exit_status, 1);
        EXPECT_THAT(performance.message, HasSubstr(c.message));
        EXPECT_THAT(performance.Events().back(), testing::Not(testing::AnyOf("rest", "end")));
        EXPECT_LE(performance.lines.back().seconds, 3610);
    }
    // A long time that the script itself asks for is not a failure.
    EXPECT_EQ(Rehearse("after 1000000 a", EchoKeys).exit_status, 0);
}

TEST(Rehearsal, LongTurnsGiveTheSameTraceAsSingleOnes) {
    const Play play = [](FakeGame& game) {
        for (int round = 0; round < 40; ++round) {
            game.Load(round % 3 == 0 ? "bell" : "tune");
            game.sound->SetFrequency(game.sound->GetFrequency() + 37 * round);
            game.sound->Play(PlayMode::once);
            game.Queue("round " + std::to_string(round));
            game.WaitForSpeech();
            game.Wait(0.07 * round);
            game.key = 0;
            game.WaitForSound();
            if (round % 2 == 0) game.Say("done");
            game.WaitForKey();
            game.Queue(std::to_string(game.platform.clock.SecondsSinceMidnight()));
        }
    };
    std::string script;
    for (int i = 0; i < 40; ++i) {
        script += "press a\nafter 0.3 c\n";
    }
    const auto patient = Rehearse(script, play, true);
    const auto restless = Rehearse(script, play, false);
    EXPECT_EQ(patient.trace, restless.trace);
    EXPECT_GT(patient.lines.size(), 200U);
}

}  // namespace
}  // namespace tamlo
