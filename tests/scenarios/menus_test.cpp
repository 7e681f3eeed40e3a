// Keys, typing and questions; the menus themselves are in pages/.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rehearsed_game.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

TEST(MainMenu, HandsOverToTheLauncherWhenItIsThere) {
    RehearsedGame game;
    TemporaryFolder folder;
    folder.Write("ZenTrope.EXE", "a program");
    std::filesystem::copy(game.sounds, folder.Path());
    game.current_directory = folder.Path();
    const auto run = game.Run("press up enter");
    EXPECT_TRUE(run.Count("start launcher \"ZenTrope.EXE\""));
    EXPECT_FALSE(run.Heard("exiting program"));
    EXPECT_EQ(run.Events().back(), "end");
}

TEST(Keys, PressedDuringASentenceActOnWhatFollowsWithoutTheirCharacter) {
    const auto run = RehearsedGame().Perform("after 0.5 y\npress enter", [](Form1& game) {
        game.say("A sentence of some length.");
        game.getkey();
        game.logline("g " + game.gs.g + " g2 " + game.gs.g2);
        game.say2("g " + game.gs.g + " g2 (" + game.gs.g2 + ")");
        game.getkey();
    });
    EXPECT_TRUE(run.Heard("g 89 g2 ()"));
}

TEST(Keys, OfOneTurnOnlyTheLastRemains) {
    const auto run = RehearsedGame().Perform("after 0.1 a\nafter 0 b", [](Form1& game) {
        game.say("A sentence.");
        game.pumpEvents();
        game.say2(game.gs.g + game.gs.g2);
    });
    EXPECT_TRUE(run.Heard("66b"));
}

TEST(Keys, WaitingForSpeechLeavesTheKeyPending) {
    const auto run =
        RehearsedGame().Perform("upon \"long\" k\nupon \"more\" escape", [](Form1& game) {
            game.say2("A long sentence that is not heard to its end by anybody.");
            game.w4s();
            game.say(game.gs.g + game.gs.g2);
            game.gs.g.clear();
            game.say2("no more");
            game.w4s();
            game.say2("then " + game.gs.g);
        });
    EXPECT_TRUE(run.Heard("75k"));
    EXPECT_TRUE(run.Heard("then 27"));
    EXPECT_LE(run.TimeOf("say \"75k\""), 0.35);  // after the delay for speech to start
}

TEST(Keys, AreEchoedFasterAndTheRateIsSetBack) {
    const auto run = RehearsedGame().Run("set vr 3\npress k");
    const auto lines = run.Events();
    const auto key = std::find(lines.begin(), lines.end(), "key 75");
    EXPECT_THAT(Texts(key + 2, key + 6), ElementsAre("rate 8", "hush", "say2 \"k\"", "rate 3"));
}

TEST(Typing, KnowsCapitalsBackspaceRepeatsAndOddKeys) {
    const struct {
        std::string keys;
        std::string typed;
    } cases[] = {
        {"shift a b enter", "Ab"},
        {"shift shift a enter", "A"},
        {"a b backspace c enter", "ac"},
        {"backspace a enter", "a"},
        {"a b f1 c enter", "c"},
        {"enter", ""},
        {"space 1 97 190 right enter", " 1a\u00BE'"},
        {"shift 190 backspace 192 backspace enter", ""},
        {"f2 112 f6 enter", "u"},
    };
    for (const auto& c : cases) {
        const auto run = RehearsedGame().Perform("press " + c.keys, [](Form1& game) {
            game.getter(" Name? ");
            game.say2("typed (" + game.gs.r + ")");
        });
        EXPECT_TRUE(run.Heard("typed (" + c.typed + ")")) << c.keys << run.trace;
    }
}

TEST(YesNo, AnswersByTheKeysOfEachQuestion) {
    using Lead = YesNoPrompt::Lead;
    using Letters = YesNoPrompt::Letters;
    const YesNoPrompt plain{.question = "Sure?"};
    const YesNoPrompt city{.question = "Sure?",
                           .lead = Lead::clear_pause,
                           .initial_yes = true,
                           .letters = Letters::after_echo,
                           .repeats_on_f1 = true};
    const YesNoPrompt voice{.question = "Sure?",
                            .lead = Lead::clear,
                            .letters = Letters::before_arrows,
                            .echoes = false};
    const struct {
        const YesNoPrompt& prompt;
        std::string keys;
        Texts spoken;
    } cases[] = {
        {plain, "enter", {"Sure?", " no ", "2"}},
        {plain, "up enter", {"Sure?", " no ", " yes ", "1"}},
        {plain, "up down enter", {"Sure?", " no ", " yes ", " no ", "2"}},
        {plain, "up y enter", {"Sure?", " no ", " yes ", "y", "Sure?", " no ", "2"}},
        {city, "enter", {"Sure?", " yes ", "1"}},
        {city, "n", {"Sure?", " yes ", "n", "2"}},
        {city, "down f1 enter", {"Sure?", " yes ", " no ", "Sure?", " yes ", "1"}},
        {city, "down q y", {"Sure?", " yes ", " no ", "q", "Sure?", " yes ", "y", "1"}},
        {voice, "y", {"Sure?", " no ", "1"}},
        {voice, "up n", {"Sure?", " no ", " yes ", "2"}},
        {voice, "up x enter", {"Sure?", " no ", " yes ", "Sure?", " no ", "2"}},
    };
    for (const auto& c : cases) {
        const auto run = RehearsedGame().Perform("press " + c.keys, [&](Form1& game) {
            const int answer = game.askYesNo(c.prompt);
            game.say2(std::to_string(answer));
        });
        EXPECT_EQ(run.Spoken(), c.spoken) << c.keys;
    }
}

}  // namespace
}  // namespace tamlo
