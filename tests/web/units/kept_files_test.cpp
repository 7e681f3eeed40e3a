// The player's files in a page: what is kept, and what becomes of it when nothing can be.
#include "web/files/kept_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "web/files/folded_wave.h"
#include "web/files/pack.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Keeps in a list, or refuses.
class ListKeeper final : public Keeper {
  public:
    bool Keep(const std::vector<Change>& changes) override {
        if (full) return false;
        std::string all;
        for (const Change& change : changes) {
            all += change.name + (change.bytes ? "=" + std::string(*change.bytes) : " gone") + ";";
        }
        kept.push_back(all);
        return true;
    }
    bool full = false;
    std::vector<std::string> kept;  ///< a string for each transaction
};

class KeptFilesTest : public testing::Test {
  protected:
    std::string Content(const std::string& path) { return files_.Read(path).bytes; }

    ListKeeper keeper_;
    KeptFiles files_{{"/Documents/tolvane", "/game"}, keeper_};
};

TEST_F(KeptFilesTest, EachChangeIsOneTransaction) {
    EXPECT_TRUE(files_.Replace("/Documents/tolvane/tamlo.cfg", "1"));
    EXPECT_TRUE(files_.Replace("/Documents/tolvane/TAMLO.CFG", "2"));
    EXPECT_TRUE(files_.Append("/Documents/tolvane/tamlo.cfg", "end"));
    EXPECT_TRUE(files_.Rename("/Documents/tolvane/tamlo.cfg", "/Documents/tolvane/old.cfg"));
    EXPECT_TRUE(files_.Delete("\\Documents\\tolvane\\Old.cfg"));
    EXPECT_THAT(keeper_.kept, ElementsAre("tamlo.cfg=1;", "tamlo.cfg=2;", "tamlo.cfg=2\r\nend;",
                                          "old.cfg=2\r\nend;tamlo.cfg gone;", "old.cfg gone;"));
}

TEST_F(KeptFilesTest, WhatCouldNotBeKeptHasNotHappened) {
    files_.PutPlayers("tamlo.sav", "day 1");
    keeper_.full = true;
    EXPECT_FALSE(files_.Replace("/Documents/tolvane/tamlo.sav", "day 2"));
    EXPECT_FALSE(files_.Append("/Documents/tolvane/tamlo.sav", "day 2"));
    EXPECT_FALSE(files_.Rename("/Documents/tolvane/tamlo.sav", "/Documents/tolvane/b.sav"));
    EXPECT_FALSE(files_.Delete("/Documents/tolvane/tamlo.sav"));
    EXPECT_EQ(Content("/Documents/tolvane/tamlo.sav"), "day 1");
    EXPECT_THAT(files_.List("/Documents/tolvane", "*"), ElementsAre("tamlo.sav"));
}

TEST_F(KeptFilesTest, NothingIsWrittenOutsideThePlayersFolder) {
    files_.PutPrograms("tamlo9.wav", "bell");
    for (const char* path : {"/game/tamlo9.wav", "tamlo9.wav", "/elsewhere/a", "/Documents/a", "",
                             "/", "/Documents/tolvane/sub/a"}) {
        EXPECT_FALSE(files_.Replace(path, "x")) << path;
        EXPECT_FALSE(files_.Delete(path)) << path;
    }
    EXPECT_THAT(keeper_.kept, IsEmpty());
    EXPECT_EQ(Content("tamlo9.wav"), "bell");
}

TEST_F(KeptFilesTest, NamesAreFoundWithoutRegardToCase) {
    files_.PutPlayers("tamlostreets Oz.txt", "a");
    files_.PutPlayers("Tamlo.cfg", "b");
    EXPECT_EQ(files_.FindFile("/Documents/tolvane/TAMLOSTREETS OZ.TXT"),
              "/Documents/tolvane/tamlostreets Oz.txt");
    EXPECT_EQ(files_.FindFolder("/documents/TOLVANE"), "");  // only the last name
    EXPECT_EQ(files_.FindFolder("/Documents/TOLVANE/"), "/Documents/tolvane");
    EXPECT_THAT(files_.List("/Documents/tolvane", "TAMLO*"),
                ElementsAre("Tamlo.cfg", "tamlostreets Oz.txt"));
    EXPECT_FALSE(
        files_.Rename("/Documents/tolvane/Tamlo.cfg", "/Documents/tolvane/TAMLOSTREETS oz.txt"));
    EXPECT_EQ(files_.Read("/Documents/tolvane/missing").outcome, ReadResult::Outcome::missing);
}

TEST_F(KeptFilesTest, SoundsAreWaitedForWhenOneIsMissing) {
    int arrivals = 0;
    files_.PutPrograms("tamlo1.wav", "title");
    files_.LetArrive([&] {
        ++arrivals;
        files_.PutPrograms("tamlo2.wav", "two!");
    });
    EXPECT_EQ(files_.Length("/game/tamlo1.wav"), 5U);
    EXPECT_EQ(arrivals, 0);
    EXPECT_EQ(files_.Length("/game/tamlo2.wav"), 4U);
    EXPECT_EQ(files_.Length("/game/tamlo3.wav"), std::nullopt);
    EXPECT_EQ(arrivals, 1);
}

TEST(Pack, GivesItsFilesOrNone) {
    const std::string pack("\2\0\0\0a.wav\0\3\0\0\0b\0\0\0\0\0one", 23);
    std::string found;
    const auto put = [&](const std::string& name, std::string_view bytes) {
        found += name + "=" + std::string(bytes) + ";";
    };
    EXPECT_TRUE(ReadPack(pack, put));
    EXPECT_EQ(found, "a.wav=one;b=;");
    found.clear();
    for (std::size_t cut = 0; cut < pack.size(); ++cut) {
        EXPECT_FALSE(ReadPack(pack.substr(0, cut), put)) << cut;
    }
    EXPECT_FALSE(ReadPack(pack + "more", put));
    EXPECT_EQ(found, "");
}

TEST(FoldedWave, UnfoldsToWhatItWas) {
    const std::string head("RIFF\0\0\0\0WAVEnote\1\0\0\0?\0fmt \4\0\0\0\1\0\1\0data\x8\0\0\0", 42);
    // 100, 150, -32768, 32767: in sixteen bits 100, -50, 32568, -32619 from where they were led to.
    const std::string folded = head + std::string("\xC8\x63\x70\xD5\0\0\xFE\xFE", 8) + "tail";
    const std::string wave = UnfoldedWave(folded);
    EXPECT_EQ(wave.substr(0, 42), head);
    EXPECT_EQ(wave.substr(42, 8), std::string("\x64\0\x96\0\0\x80\xFF\x7F", 8));
    EXPECT_EQ(wave.substr(50), "tail");
    for (std::size_t cut = 0; cut < folded.size(); ++cut) {
        EXPECT_EQ(UnfoldedWave(folded.substr(0, cut)).size(), cut);
    }
}

}  // namespace
}  // namespace tamlo
