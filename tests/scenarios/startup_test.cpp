// The start-up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rehearsed_game.h"
#include "services/end_of_process.h"

namespace tamlo {
namespace {

using testing::HasSubstr;
using Texts = std::vector<std::string>;

TEST(StartUp, SpeaksItsTitleAfterTheTuneAndStartsWithTheDefaults) {
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

TEST(StartUp, ClaimsTheFolderWhileTheTunePlaysAndBeforeItTouchesAFile) {
    RehearsedGame game;
    game.Write("tamlo.cfg", " 1 \r\n 2 \r\n 60 \r\n 0 \r\n 2 \r\n");
    bool claimed = false;
    const auto run = game.RunProgram("", [&](Form1& form) {
        form.Form_Load([&] {
            EXPECT_EQ(form.gs.wb1->GetStatus(), status_playing);
            EXPECT_EQ(form.gs.nov, 3);
            EXPECT_EQ(form.gs.datapath, game.documents.Path() + "/tolvane");
            EXPECT_NE(form.gs.vv, 60);
            claimed = true;
            throw EndOfProcess{};
        });
    });
    EXPECT_TRUE(claimed);
    EXPECT_EQ(run.Count("play tamlo1"), 1);
    EXPECT_FALSE(game.Has("tamlolog.txt"));
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
        {"ended early",
         [](const std::string& f) {
             std::fstream(f + "/tamlo18.wav", std::ios::in | std::ios::out).seekp(100) << '\x1A';
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

}  // namespace
}  // namespace tamlo
