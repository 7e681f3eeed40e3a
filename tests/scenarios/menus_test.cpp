// Menus, questions, typing and the dialogs of the settings, key by key.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rehearsed_game.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

/// What is spoken behind the opening of the main menu.
Texts SpokenInMenu(const std::string& script, RehearsedGame&& game = {}) {
    const Texts all = game.Run(script).Spoken();
    const auto menu = std::find(all.begin(), all.end(), " start game ");
    return menu == all.end() ? Texts{"no menu"} : Texts(menu + 1, all.end());
}

TEST(MainMenu, GoesAroundAtBothEndsAndStartsAgainAtOtherKeys) {
    EXPECT_THAT(SpokenInMenu("press up down down"),
                ElementsAre(" exit game ", " start game ", " reed instructions "));
    EXPECT_THAT(SpokenInMenu("press down a"),
                ElementsAre(" reed instructions ", "a", " select ", " start game "));
    EXPECT_THAT(SpokenInMenu("press down f1"),
                ElementsAre(" reed instructions ", " select ", " start game "));
    EXPECT_THAT(SpokenInMenu("press 190"), ElementsAre("\u00BE", " select ", " start game "));
}

TEST(MainMenu, EndsWithoutAQuestionAndKeepsTheSavedGame) {
    RehearsedGame game;
    game.Run(
        "press enter enter 3 5\nset p2d 0\npress right enter 3 5 right enter 3 5 right enter 3 5 "
        "\npress down enter");
    ASSERT_TRUE(game.Has("tamlo.sav"));
    const auto run = game.Run("press up enter");
    EXPECT_EQ(run.Events().back(), "end");
    EXPECT_EQ(run.Count("beep"), 2);
    EXPECT_TRUE(game.Has("tamlo.sav"));
}

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

TEST(Instructions, AreReadBeforeTheMenuAndCutShortByAKey) {
    const auto spoken = SpokenInMenu("press down enter\nupon \"faster you get\" down");
    ASSERT_EQ(spoken.size(), 5u);
    EXPECT_THAT(spoken[1], HasSubstr("Apple to Willow.  South"));
    EXPECT_THAT(spoken[1], HasSubstr("to Volkswagon. In the games main menu"));
    EXPECT_THAT(spoken[1], HasSubstr("documents\\\\tolvane folder and the file name will be "
                                     "tamlostreetsname.txt. Special key instructions. f1 repeat"));
    EXPECT_THAT(spoken[1], HasSubstr("please write or call.  "));
    EXPECT_EQ(spoken[2], " select ");
    EXPECT_EQ(spoken[3], " start game ");
    EXPECT_EQ(spoken[4], " reed instructions ");
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
    EXPECT_LE(run.TimeOf("say \"75k\""), 0.35);  // once speech has had its time to start
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

TEST(Voices, AreOfferedInTurnAndWrapAround) {
    RehearsedGame game;
    const auto run = game.Run("press down down down enter n up x n n y\nshow nv");
    EXPECT_EQ(run.Shown("nv"), "0");
    Texts offers = run.Events("voice ");
    EXPECT_THAT(offers, ElementsAre("voice 0", "voice 0", "voice 1", "voice 2", "voice 0"));
    EXPECT_EQ(run.Count("play tamlo24 once"), 1);
    EXPECT_EQ(game.Content("tamlo.cfg"), " 0\r\n 0\r\n 100\r\n 0\r\n 1\r\n");
}

TEST(Voices, ASingleOneIsNotOffered) {
    RehearsedGame game;
    const auto run = game.Run("voices 1\npress down down down enter");
    EXPECT_FALSE(run.Heard("do you wish"));
    EXPECT_TRUE(game.Has("tamlo.cfg"));
}

TEST(Rate, EnterDoesNotCutTheInstructionShort) {
    RehearsedGame game;
    const auto run =
        game.Run("press down down down down enter\nupon \"to adjust\" enter\npress down");
    const auto between = run.Between("say2 \"to adjust", "say2 \" start game");
    for (const TraceLine& line : between) EXPECT_NE(line.event, "hush");
    EXPECT_TRUE(game.Has("tamlo.cfg"));
}

TEST(Rate, IsHeardAtOnceAndHasNoBound) {
    std::string ups;
    for (int i = 0; i < 12; ++i) ups += " up";
    RehearsedGame game;
    const auto run = game.Run("press down down down down enter" + ups + " x down enter");
    EXPECT_TRUE(run.Count("rate 12"));
    EXPECT_EQ(game.Content("tamlo.cfg"), " 0\r\n 11\r\n 100\r\n 0\r\n 1\r\n");
    const auto again = game.Run("");
    EXPECT_TRUE(again.Count("rate 11"));
}

TEST(Volume, StopsAtItsLimits) {
    const struct {
        int vv, wavol;
        std::string keys;
        Texts words;
        int new_vv, new_wavol;
    } cases[] = {
        {95, 0, "up enter enter", {" maximum "}, 100, 0},
        {90, 0, "up enter enter", {" louder "}, 95, 0},
        {100, 0, "up enter enter", {" maximum "}, 100, 0},
        {5, 0, "down enter enter", {" minimum "}, 0, 0},
        {10, 0, "down enter enter", {" quieter "}, 5, 0},
        {100, -3400, "enter down enter", {" quieter "}, 100, -3500},
        {100, -3500, "enter down enter", {" minimum "}, 100, -3500},
        {100, -100, "enter up enter", {" maximum "}, 100, 0},
        {100, -200, "enter up enter", {" louder "}, 100, -100},
    };
    for (const auto& c : cases) {
        RehearsedGame game;
        game.Write("tamlo.cfg", " 0\r\n 0\r\n " + std::to_string(c.vv) + "\r\n" +
                                    std::to_string(c.wavol) + "\r\n 1\r\n");
        const auto run = game.Run("press down down down down down enter " + c.keys);
        Texts words;
        for (const std::string& text : run.Spoken()) {
            if (text == " maximum " || text == " minimum " || text == " louder " ||
                text == " quieter ") {
                words.push_back(text);
            }
        }
        EXPECT_EQ(words, c.words) << c.keys;
        const auto sign = [](int n) { return (n < 0 ? "" : " ") + std::to_string(n) + "\r\n"; };
        EXPECT_EQ(game.Content("tamlo.cfg"),
                  " 0\r\n 0\r\n" + sign(c.new_vv) + sign(c.new_wavol) + " 1\r\n");
    }
}

TEST(Volume, F1TellsAgainAndALetterIsEchoed) {
    const auto spoken = SpokenInMenu("press down down down down down enter f1 q enter f1 q enter");
    EXPECT_EQ(std::count(spoken.begin(), spoken.end(), "q"), 2);
    int voice = 0, sound = 0;
    for (const std::string& text : spoken) {
        voice += text.find("volume of the voice.   Press") != std::string::npos;
        sound += text.find("volume of the sounds.   Press") != std::string::npos;
    }
    EXPECT_EQ(voice, 3);
    EXPECT_EQ(sound, 3);
}

TEST(Gender, AlwaysStartsAtFemaleAndIsStoredAtOnce) {
    RehearsedGame game;
    const std::string choose = "press down down down down down down enter ";
    game.Run(choose + "down enter");
    EXPECT_EQ(game.Content("tamlo.cfg"), " 0\r\n 0\r\n 100\r\n 0\r\n 2\r\n");
    const auto again = game.Run(choose + "\nshow gnd");
    EXPECT_EQ(again.Shown("gnd"), "2");
    EXPECT_EQ(again.Spoken().back(), " female ");
}

}  // namespace
}  // namespace tamlo
