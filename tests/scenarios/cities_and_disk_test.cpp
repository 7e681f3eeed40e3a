// The player's files: cities, settings, and a disk with faults.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "faults/faulty_files.h"
#include "rehearsed_game.h"
#include "store/saved_game.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

/// A disk on which the files that hold a text in their path can't be written, removed or renamed.
struct StubbornFiles : FaultyFiles {
    explicit StubbornFiles(const std::string& text)
        : FaultyFiles(text, FaultKind::unwritable, 0, "") {}
};

std::string StreetsOf(const std::string& city, int names = 147) {
    std::string text;
    for (int i = 1; i <= names; ++i) text += city + std::to_string(i) + "\r\n";
    return text;
}

const std::string create = "press up up up up enter ";
const std::string remove_city = "press up up enter ";

TEST(Cities, AreReplacedOnlyWhenThePlayerSaysSo) {
    RehearsedGame game;
    game.Write("tamlostreetsOslo.txt", "mine\r\n");
    const auto no = game.Run(create + "o s l o enter enter q enter");
    EXPECT_EQ(no.Count(" There is already a file for oslo. Do you wish to replace it? "), 2);
    EXPECT_EQ(no.Spoken().back(), " start game ");
    EXPECT_EQ(game.Content("tamlostreetsOslo.txt"), "mine\r\n");
    game.Write("tamlostreets.txt", "short\r\n");
    game.Run(create + "o r i g i n a l enter enter up enter");
    EXPECT_THAT(game.Content("tamlostreets.txt"), testing::StartsWith("Willow\r\n"));
}

TEST(Cities, AreListedByNameAndFoundByTheirLetter) {
    RehearsedGame game;
    for (const char* city : {"Zagreb", "bergen", "Aachen", "!odd", "Bath"}) {
        game.Write("tamlostreets" + std::string(city) + ".txt", StreetsOf(city));
    }
    const auto run = game.Run("press enter b z x up 1 down down enter enter\n");
    const auto spoken = run.Spoken();
    const auto list =
        std::find(spoken.begin(), spoken.end(), " select the city streets file to play ");
    ASSERT_GE(spoken.end() - list, 13);
    EXPECT_THAT(Texts(list + 1, list + 13),
                ElementsAre("original", "b", "Bath", "z", "Zagreb", "x", "Zagreb", "bergen", "1",
                            " select the city streets file to play ", "original", "!odd"));
    EXPECT_TRUE(run.Heard("on the south side of Aachen23 between Aachen96 and Aachen97. "));
}

TEST(Cities, TooShortOrGoneGiveTheDefaultNames) {
    const std::string sorry =
        " I 'm sorry, but there were not enough names of streets in the Oslo file. ";
    for (const std::string& content : {StreetsOf("Oslo", 146), std::string(), std::string("\"")}) {
        RehearsedGame game;
        game.Write("tamlostreetsOslo.txt", content);
        const auto run = game.Run("press enter o enter q down enter\nshow sok ewnames(1)");
        EXPECT_EQ(run.Count(sorry), 2);
        EXPECT_EQ(run.Count(" The names of the streets have been set to the original names. "), 2);
        EXPECT_EQ(run.Events("state").at(0), "state sok=2 ewnames(1)=\"Willow\"");
        EXPECT_TRUE(run.Heard(" The time is 3:00"));
        const auto back = game.Run("press enter o enter enter");
        EXPECT_EQ(back.Spoken().back(), " start game ");
    }
    RehearsedGame more;
    more.Write("tamlostreetsOslo.txt", StreetsOf("Oslo", 200));
    const auto run = more.Run("press enter o enter\nshow sok nsnames(102)");
    EXPECT_EQ(run.Events("state").at(0), "state sok=1 nsnames(102)=\"Oslo147\"");
}

TEST(DataFolder, IsFoundWhateverItsLettersAndElseTheCurrentDirectoryServes) {
    RehearsedGame game;
    game.documents.Write("TolVane/tamlo.cfg", " 1\r\n 2\r\n");
    const auto run = game.Run("show nv vr");
    EXPECT_EQ(run.Events("state").at(0), "state nv=1 vr=2");
    EXPECT_FALSE(game.documents.Has("tolvane"));

    TemporaryFolder here;
    std::filesystem::copy(game.sounds, here.Path());
    game.current_directory = here.Path();
    game.has_documents = false;
    game.Run("press down down down down down down enter down enter");
    EXPECT_EQ(here.Content("tamlo.cfg"), " 0\r\n 0\r\n 100\r\n 0\r\n 2\r\n");
}

TEST(Settings, AVoiceIsKeptAsSoonAsItIsChosen) {
    RehearsedGame game;
    game.Run("voices 3\npress down down down enter n y");
    EXPECT_EQ(game.Content("tamlo.cfg").substr(0, 4), " 1\r\n");
}

TEST(StubbornDisk, IsToldOnceAfterTheTitleAndTheGameGoesOn) {
    RehearsedGame game;
    StubbornFiles files("tolvane");
    game.files = &files;
    const auto run = game.Run("press down down down down down down enter enter up enter");
    EXPECT_EQ(run.Count("the files of the game can not be written to"), 1);
    EXPECT_EQ(run.Count(" I 'm sorry, but your settings could not be saved. "), 1);
    EXPECT_EQ(run.Events().back(), "end");
}

TEST(StubbornDisk, LeavesTheDayAsItWasWhenTheGameCanNotBeSaved) {
    const std::string old = EncodeSavedGame({7, 1, 1, 2, 3, 4});
    RehearsedGame game;
    game.Write("tamlo.sav", old);
    StubbornFiles files("tamlo.sav");
    game.files = &files;
    const auto run = game.Run(
        "press enter\nset p2d 0\npress enter 3 5 right enter 3 5 right enter 3 5 right enter 3 5\n"
        "show cash nhr nmt nsd\npress down enter\nshow cash nhr nmt nsd");
    EXPECT_TRUE(run.Heard(" I 'm sorry, but the game could not be saved. "));
    EXPECT_FALSE(run.Heard(" game saved "));
    const Texts states = run.Events("state");
    ASSERT_EQ(states.size(), 2u);
    EXPECT_EQ(states[0], "state cash=7 nhr=1 nmt=2 nsd=3");
    EXPECT_EQ(states[1], states[0]);
    EXPECT_EQ(run.Spoken().back(), " deliver tamlo ");
    EXPECT_GT(run.TimeOf("play tamlo5 loop", 3), run.TimeOf("could not be saved"));
    EXPECT_EQ(game.Content("tamlo.sav"), old);
}

TEST(StubbornDisk, WhatCanNotBeDoneIsToldAndNotHalfDone) {
    const std::string saved = EncodeSavedGame({7, 1, 1, 2, 3, 4});
    const std::string oslo = StreetsOf("Oslo");
    const std::string win =
        "press enter enter 3 5\nset p2d 0\nset ordx(1) -1\nset roy 24\nset roz 1\nset cash 2001\n"
        "press enter enter\npress a enter enter";
    const struct {
        std::string file, content, script;
        Texts sorry;
    } cases[] = {
        {"tamlo.sav",
         "scribble",
         "set firsttrip 2\npress enter down enter",
         {"the saved game can not be understood. A new game begins. ",
          "the game could not be saved. "}},
        {"tamlo.rec",
         "scribble",
         win,
         {"the old record can not be understood. ", "the record could not be saved. "}},
        {"tamlo.sav", saved, win, {"the saved game could not be deleted. "}},
        {"tamlo.sav",
         saved,
         "press enter enter 3 5 escape up enter",
         {"the saved game could not be deleted. "}},
        {"tamlo.sav",
         saved,
         "press down down down down down down down enter up enter",
         {"the saved game could not be deleted. "}},
        {"tamlostreetsOslo.txt",
         oslo,
         create + "shift o s l o enter enter up enter",
         {"the Oslo file could not be created. "}},
        {"tamlostreetsOslo.txt",
         oslo,
         remove_city + "o enter up enter",
         {"the Oslo city streets file could not be deleted. "}},
    };
    for (const auto& c : cases) {
        RehearsedGame game;
        game.Write(c.file, c.content);
        StubbornFiles files(c.file);
        game.files = &files;
        const auto run = game.Run(c.script);
        Texts sorry;
        for (const std::string& text : run.Spoken()) {
            constexpr std::string_view start = " I 'm sorry, but ";
            if (text.starts_with(start)) sorry.push_back(text.substr(start.size()));
        }
        EXPECT_EQ(sorry, c.sorry) << run.trace;
        EXPECT_FALSE(run.Heard("has been")) << run.trace;
        EXPECT_EQ(game.Content(c.file), c.content) << c.script;
    }
}

}  // namespace
}  // namespace tamlo
