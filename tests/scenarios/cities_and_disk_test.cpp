// The player's own files: cities, settings, and a disk that does not do as it should.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rehearsed_game.h"
#include "store/saved_game.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

/// A disk on which chosen files can't be written, removed or renamed.
class StubbornFiles final : public Files {
  public:
    explicit StubbornFiles(std::string stubborn) : stubborn_(std::move(stubborn)) {}
    bool stuck = true;

    std::string FindFile(const std::string& path) override { return disk_.FindFile(path); }
    std::string FindFolder(const std::string& path) override { return disk_.FindFolder(path); }
    std::vector<std::string> List(const std::string& folder, std::string_view pattern) override {
        return disk_.List(folder, pattern);
    }
    std::optional<std::uint64_t> Length(const std::string& path) override {
        return disk_.Length(path);
    }
    ReadResult Read(const std::string& path) override { return disk_.Read(path); }
    bool Replace(const std::string& path, std::string_view bytes) override {
        return !Stuck(path) && disk_.Replace(path, bytes);
    }
    bool Append(const std::string& path, std::string_view bytes) override {
        return !Stuck(path) && disk_.Append(path, bytes);
    }
    bool Delete(const std::string& path) override { return !Stuck(path) && disk_.Delete(path); }
    bool Rename(const std::string& from, const std::string& to) override {
        return !Stuck(from) && disk_.Rename(from, to);
    }
    bool MakeFolder(const std::string& path) override {
        return !Stuck(path) && disk_.MakeFolder(path);
    }
    std::string CurrentDirectory() override { return disk_.CurrentDirectory(); }

  private:
    bool Stuck(const std::string& path) const {
        return stuck && path.find(stubborn_) != std::string::npos;
    }

    DiskFiles disk_;
    std::string stubborn_;
};

std::string StreetsOf(const std::string& city, int names = 147) {
    std::string text;
    for (int i = 1; i <= names; ++i) text += city + std::to_string(i) + "\r\n";
    return text;
}

const std::string create = "press up up up up enter ";
const std::string edit = "press up up up enter ";
const std::string remove_city = "press up up enter ";

TEST(Cities, AreCreatedAsACopyAndTheMenuGoesOnAtEdit) {
    RehearsedGame game;
    const auto run = game.Run(create + "shift o s l o enter enter q");
    const auto spoken = run.Spoken();
    const auto done = std::find(spoken.begin(), spoken.end(),
                                " Your Oslo file has been created.  The actuall file name in "
                                "Documents Tolvane folder is, tamlo streets Oslo dot txt ");
    ASSERT_GE(spoken.end() - done, 6);
    EXPECT_THAT(Texts(done + 1, done + 6), ElementsAre(" select ", " edit city streets file ", "q",
                                                       " select ", " start game "));
    EXPECT_EQ(game.Content("tamlostreetsOslo.txt"), game.Content("tamlostreets.txt"));
    EXPECT_THAT(game.Content("tamlostreets.txt"), testing::StartsWith("Willow\r\nWalnut\r\n"));
    EXPECT_THAT(game.Content("tamlostreets.txt"),
                HasSubstr("\r\nVolkswagon\r\nFifty First Street\r\nFiftieth Street\r\n"));
    EXPECT_THAT(game.Content("tamlostreets.txt"), testing::EndsWith("\r\nFifty First Avenue\r\n"));
}

TEST(Cities, NamesAreAskedForAgainOrGivenUp) {
    RehearsedGame other;
    const auto empty = other.Run(create + "enter enter space a enter enter o k enter n");
    EXPECT_EQ(empty.Count(" I 'm sorry, but that name can not be used for a file. "), 2);
    EXPECT_EQ(empty.Count(" Enter the name of your city "), 3);
    EXPECT_EQ(empty.Spoken().back(), " start game ");
    EXPECT_FALSE(other.Has("tamlostreetsok.txt"));
}

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

TEST(Cities, AreEditedAndDeleted) {
    RehearsedGame game;
    game.Write("tamlostreetsOslo.txt", "mine\r\n");
    const auto edited = game.Run(edit + "o enter space");
    EXPECT_THAT(edited.Events("start"),
                ElementsAre("start editor \"tolvane/tamlostreetsOslo.txt\""));
    EXPECT_TRUE(edited.Heard(" After saving your file and exiting Note Pad, press the space bar "));
    EXPECT_EQ(edited.Spoken().back(), " start game ");
    const auto kept = game.Run(remove_city + "o enter enter");
    EXPECT_TRUE(kept.Heard(" Do you wish to delete the Oslo city streets file? "));
    EXPECT_TRUE(game.Has("tamlostreetsOslo.txt"));
    const auto deleted = game.Run(remove_city + "o enter down enter");
    EXPECT_TRUE(deleted.Heard(" The Oslo city streets file has been deleted. "));
    EXPECT_FALSE(game.Has("tamlostreetsOslo.txt"));
    game.Run(remove_city + "enter down enter");
    EXPECT_FALSE(game.Has("tamlostreets.txt"));
    game.Run("press enter");
    EXPECT_TRUE(game.Has("tamlostreets.txt"));
}

TEST(DataFolder, IsFoundWhateverItsLettersAndElseTheCurrentDirectoryServes) {
    RehearsedGame game;
    game.documents.Write("TolVane/tamlo.cfg", " 1\r\n 2\r\n");
    const auto run = game.Run("show nv vr");
    EXPECT_EQ(run.Events("state").at(0), "state nv=1 vr=2");
    EXPECT_FALSE(game.documents.Has("tolvane"));
}

TEST(StubbornDisk, IsToldOnceBehindTheTitleAndTheGameGoesOn) {
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

TEST(StubbornDisk, WhatCanNotBePutAsideIsNeverWrittenOver) {
    RehearsedGame game;
    game.Write("tamlo.sav", "scribble");
    StubbornFiles files("tamlo.sav");
    game.files = &files;
    const auto run = game.Run(
        "press enter\nset p2d 0\npress enter 3 5 right enter 3 5 right enter 3 5 right enter 3 5\n"
        "press down enter");
    EXPECT_TRUE(
        run.Heard(" I 'm sorry, but the saved game can not be understood. A new game "
                  "begins. "));
    EXPECT_TRUE(run.Heard(" I 'm sorry, but the game could not be saved. "));
    EXPECT_EQ(game.Content("tamlo.sav"), "scribble");
}

TEST(StubbornDisk, CitiesThatCanNotBeMadeOrDeletedAreTold) {
    RehearsedGame game;
    game.Write("tamlostreetsOslo.txt", StreetsOf("Oslo"));
    StubbornFiles files("Oslo");
    game.files = &files;
    const auto created = game.Run(create + "shift o s l o enter enter up enter");
    EXPECT_TRUE(created.Heard(" I 'm sorry, but the Oslo file could not be created. "));
    EXPECT_FALSE(created.Heard("has been created"));
    EXPECT_EQ(created.Spoken().back(), " start game ");
    const auto deleted = game.Run(remove_city + "o enter up enter");
    EXPECT_TRUE(
        deleted.Heard(" I 'm sorry, but the Oslo city streets file could not be deleted. "));
    EXPECT_FALSE(deleted.Heard("has been deleted"));
    EXPECT_EQ(deleted.Spoken().back(), " start game ");
    EXPECT_EQ(game.Content("tamlostreetsOslo.txt"), StreetsOf("Oslo"));
}

}  // namespace
}  // namespace tamlo
