// From the start-up over the working day to the road.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rehearsed_game.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

// An order of one extra large tamlo with ham, to be delivered to (51, 22): the draws of the title's
// background come later, so the first ones are those of the order.
const std::string one_order = "draw 0 0 0.365 0.49 0.5\n";

/// Runs a trip whose order is of no matter, from the departure menu on.
Performance Drive(const std::string& script) {
    RehearsedGame game;
    return game.Run("press enter\nset p2d 5\nset ordx(1) -1\n" + script);
}

TEST(StartUp, SpeaksItsTitleBehindTheTuneAndStartsWithTheDefaults) {
    RehearsedGame game;
    const auto run = game.Run("show nv vr vv wavol gnd plast cash cartog mst mew nov");
    EXPECT_EQ(run.Events("state").at(0),
              "state nv=0 vr=0 vv=100 wavol=0 gnd=1 plast=1 cash=0 cartog=1 mst=30 mew=15 nov=3");
    EXPECT_EQ(run.Spoken(),
              (Texts{" ", " Tamlo Delivery. version 3. ", " select ", " start game "}));
    EXPECT_EQ(run.Count("play tamlo1 once frequency 8000 volume 0 pan 0"), 1);
    EXPECT_NEAR(run.TimeOf("version 3"), 19.3, 0.3);
    EXPECT_EQ(game.Content("tamlolog.txt"), " Tamlo Delivery log file on 03-05-2015\r\n\r\n");
    EXPECT_FALSE(game.Has("tamlo.cfg"));
}

TEST(StartUp, AKeyCutsTheTitleShortAndDoesNothingElse) {
    RehearsedGame game;
    const auto run = game.Run("after 1 enter");
    EXPECT_NEAR(run.TimeOf("stop tamlo1"), 1, 0.02);
    EXPECT_EQ(run.Spoken().back(), " start game ");
}

TEST(StartUp, WithoutAVoiceSaysSoInAMessageAndEnds) {
    RehearsedGame game;
    const auto run = game.Run("voices 0");
    EXPECT_EQ(run.Events("message").size(), 1u);
    EXPECT_THAT(run.Events("message")[0],
                HasSubstr("couldn't find any voices to use\\rPlease contact"));
    EXPECT_EQ(run.Events().back(), "end");
}

TEST(StartUp, ChecksTheWaveFilesOfTheCurrentDirectory) {
    namespace fs = std::filesystem;
    const struct {
        std::string what;
        std::function<void(const std::string& folder)> damage;
        bool starts;
    } cases[] = {
        {"untouched", [](const std::string&) {}, true},
        {"missing", [](const std::string& f) { fs::remove(f + "/tamlo13.wav"); }, false},
        {"one byte longer",
         [](const std::string& f) { std::ofstream(f + "/tamlo86.wav", std::ios::app) << 'x'; },
         false},
        {"altered",
         [](const std::string& f) {
             std::fstream(f + "/tamlob4.wav", std::ios::in | std::ios::out).seekp(22) << ',';
         },
         false},
        {"an unchecked one missing", [](const std::string& f) { fs::remove(f + "/tamlo50.wav"); },
         true},
        {"names in capitals",
         [](const std::string& f) { fs::rename(f + "/tamlo8.wav", f + "/TAMLO8.WAV"); }, true},
        {"another directory", [](const std::string& f) { fs::remove_all(f + "/"); }, false},
    };
    for (const auto& c : cases) {
        TemporaryFolder folder;
        RehearsedGame game;
        fs::copy(game.sounds, folder / "set");
        c.damage(folder / "set");
        fs::create_directories(folder / "set");
        game.current_directory = folder / "set";
        const auto run = game.Run("");
        EXPECT_EQ(run.Heard("version 3"), c.starts) << c.what;
        EXPECT_EQ(run.Count("message \"Sorry but one or more of the wave files seem to be corrupt"
                            "\\rPlease contact"),
                  c.starts ? 0 : 1)
            << c.what;
        EXPECT_EQ(run.Events().back(), c.starts ? "rest" : "end") << c.what;
    }
}

TEST(WorkingDay, FirstVisitTellsTheHouseAndHandsOutOrdersAtOnce) {
    RehearsedGame game;
    const auto run =
        game.Run(one_order + "press enter\nshow noos npd p2d ordx(1) ordy(1) ordeta(1)");
    const auto spoken = run.Spoken();
    const auto start = std::find(spoken.begin(), spoken.end(), " start game ");
    ASSERT_GE(spoken.end() - start, 6);
    EXPECT_THAT(Texts(start + 1, start + 6),
                ElementsAre(" The time is 3:00",
                            " You are at The Tamlo Vorrel, which is on the south side of Center "
                            "between First Street and First Avenue. ",
                            " There is an order for 1 extra large, ham tamlo.  To be delivered to "
                            "the corner of First Street and Apple.  cost $19.95.   They are "
                            "expecting their tamlo in approximately 0 minutes",
                            " Select ", " turn left, west "));
    EXPECT_EQ(run.Events("state").at(0),
              "state noos=1 npd=1 p2d=1 ordx(1)=51 ordy(1)=22 ordeta(1)=0");
    EXPECT_EQ(run.Count("play tamlo5 loop"), 1);
    EXPECT_EQ(run.Between("stop tamlo5", "play tamlo2 once").size(), 0u);
}

TEST(Trip, LeavesWestAndEastAndTurnsAllWays) {
    const struct {
        std::string keys;
        std::string place;
    } cases[] = {
        {"enter 3 5", "rox=51 roy=23 roz=4"},
        {"down enter 3 5", "rox=52 roy=23 roz=2"},
        {"right enter 3 5", "rox=52 roy=23 roz=2"},
        {"right left enter 3 5", "rox=51 roy=23 roz=4"},
        {"enter 3 5 enter enter", "rox=50 roy=23 roz=4"},
        {"enter 3 5 right enter enter", "rox=51 roy=22 roz=1"},
        {"enter 3 5 left enter enter", "rox=51 roy=24 roz=3"},
        {"right enter 3 5 left enter enter left enter enter", "rox=51 roy=22 roz=4"},
        {"enter 3 5 up up enter enter", "rox=51 roy=22 roz=1"},
    };
    for (const auto& c : cases) {
        const auto run = Drive("press " + c.keys + "\nshow rox roy roz");
        EXPECT_EQ(run.Events("state").at(0), "state " + c.place) << c.keys;
    }
}

TEST(Trip, StopsAtTheCityLimitWithABeepAndIsChargedAllTheSame) {
    const struct {
        int x, y, heading;
    } cases[] = {{10, 1, 1}, {102, 10, 2}, {10, 45, 3}, {1, 10, 4}};
    for (const auto& c : cases) {
        const auto run = Drive("press enter 3 5\nset rox " + std::to_string(c.x) + "\nset roy " +
                               std::to_string(c.y) + "\nset roz " + std::to_string(c.heading) +
                               "\nset tit 0\ndraw 0.9 0 0.9 0.9 0.9\npress enter 1 enter\n"
                               "show rox roy roz tit");
        EXPECT_EQ(run.Count("beep"), 1);
        EXPECT_EQ(run.Events("state").at(0), "state rox=" + std::to_string(c.x) +
                                                 " roy=" + std::to_string(c.y) +
                                                 " roz=" + std::to_string(c.heading) + " tit=60");
    }
}

TEST(Trip, FKeysTellAndTheRoadIsNotCheckedAgain) {
    const auto run = Drive("press enter 3 5\ndraw 0.3\npress f2 f3 f4 f5 f6 f1 q\nshow oc1 tit");
    EXPECT_EQ(run.Count(" You are at the corner of First Street and Center, heading West"), 7);
    EXPECT_EQ(run.Shown("oc1"), "2");
    EXPECT_EQ(run.Shown("tit"), "35");
    EXPECT_TRUE(run.Heard(" Your current delivery trip time is 0 minutes and 35 seconds"));
    EXPECT_TRUE(run.Heard(" The real time is 12:"));
    EXPECT_TRUE(run.Heard("vehicle rev sound off"));
    EXPECT_EQ(run.Spoken().back(), " go forward ");
}

TEST(Trip, EscapeEndsAtOnceAtTheStartAndAsksOnTheRoad) {
    RehearsedGame game;
    const std::string saved = [] {
        RehearsedGame other;
        other.Run(
            "press enter enter 3 5\nset p2d 0\npress right enter 3 5 right enter 3 5 right "
            "enter 3 5 down enter");
        return other.Content("tamlo.sav");
    }();
    ASSERT_FALSE(saved.empty());
    game.Write("tamlo.sav", saved);
    const auto start = game.Run("press enter escape");
    EXPECT_EQ(start.Events().back(), "end");
    EXPECT_FALSE(start.Heard("Do you wish"));
    EXPECT_TRUE(game.Has("tamlo.sav"));
    const auto stay = game.Run("press enter enter 3 5 escape enter");
    EXPECT_TRUE(stay.Heard(" Do you wish to exit the game? "));
    EXPECT_EQ(stay.Spoken().back(), " go forward ");
    EXPECT_TRUE(game.Has("tamlo.sav"));
    const auto leave = game.Run("press enter enter 3 5 escape up enter");
    EXPECT_EQ(leave.Events().back(), "end");
    EXPECT_FALSE(game.Has("tamlo.sav"));
}

TEST(Speed, IsTypedInOneOrTwoDigits) {
    const struct {
        int plast;
        std::string keys;
        std::string sped, spedo;
        std::string heard;
    } cases[] = {
        {1, "3 enter", "30", "30", ""},
        {1, "4 5", "45", "45", ""},
        {1, "0 5", "5", "5", ""},
        {1, "4 6", "45", "45",
         " you can only get the old tamlo vorrel scooter up to 45 miles an "
         "hour. "},
        {2, "5 6", "55", "55",
         " You can only get the tamlo vorrel psychedelic dune buggy up to 55"
         " miles an hour. "},
        {3, "9 9", "65", "65",
         " You can only get the tamlo vorrel psychedelic van up to 65 miles "
         "an hour. "},
        {4, "9 9", "99", "99", ""},
        {1, "enter 1 0", "10", "10", " You are already going zero miles an hour.  Try again. "},
        {1, "0 enter 1 0", "10", "10", " You are already going zero miles an hour.  Try again. "},
        {1, "0 0 2 0", "20", "20", " You are already going zero miles an hour.  Try again. "},
        {1, "a 2 0", "20", "20", " a was not a valid input. Please press a number for the speed. "},
        {1, "3 97 2 0", "20", "20",
         " a was not a valid input. Please press a number for the "
         "speed. "},
        {1, "up f1 2 0", "20", "20",
         " p was not a valid input. Please press a number for the "
         "speed. "},
    };
    for (const auto& c : cases) {
        RehearsedGame game;
        const auto run =
            game.Perform("press " + c.keys + "\nshow sped spedo oc1", [&](Form1& form) {
                form.gs.plast = c.plast;
                form.GetSped();
                form.dy(7);
            });
        EXPECT_EQ(run.Events("state").at(0),
                  "state sped=" + c.sped + " spedo=" + c.spedo + " oc1=1")
            << c.keys;
        EXPECT_TRUE(c.heard.empty() || run.Heard(c.heard)) << c.keys << run.trace;
    }
}

}  // namespace
}  // namespace tamlo
