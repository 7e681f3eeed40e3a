// The speech and sound check, key by key, and its findings on machines that lack something.
#include "app/doctor/doctor.h"

#include <gtest/gtest.h>

#include "rehearsed_game.h"
#include "services/end_of_process.h"

namespace tamlo {
namespace {

/// A machine on which all is well, and the check of it.
struct Check {
    RehearsedGame game;
    Surroundings around{.front = "a window",
                        .sound = [this] { return Sound(); },
                        .voices = {"First", "Second"},
                        .facts = {{"Version", "1.2"}},
                        .readers = {},
                        .reports = game.documents.Path(),
                        .home = game.documents.Path()};
    WrittenReport written;
    SoundState sound{"pulseaudio", 256, 0, true, 0};
    const Clock* clock = nullptr;
    int status = -1;

    /// The card plays for as long as the check takes.
    SoundState Sound() const {
        SoundState now = sound;
        now.played = clock->Steady().count() * 48 / 1000;
        return now;
    }

    Performance Run(std::string_view script) {
        return game.RunProgram(script, [this](Form1& form) {
            clock = &form.platform.clock;
            try {
                CheckSpeechAndSound(form, around, written);
            } catch (const EndOfProcess& end) {
                status = end.exit_status;
                throw;
            }
        });
    }
    std::string Report() const { return game.documents.Content("doctor.txt"); }
};

TEST(Doctor, LeadsThroughEverythingWithEnter) {
    Check check;
    const auto run = check.Run(
        "press enter enter x enter\n"                // the ears: again, and both heard
        "press enter down up enter\n"                // the voices
        "press enter q f1 escape a escape escape\n"  // the keys
        "press enter enter");
    EXPECT_TRUE(run.Heard("3 voices are installed. You hear number 1, First."));
    EXPECT_TRUE(run.Heard("All 93 sound files are in order."));
    EXPECT_TRUE(run.Heard("Sound goes out by pulseaudio, in blocks of 256 frames, which is 5 "));
    EXPECT_EQ(run.Count("setpan tamlo9 -10000"), 1);
    EXPECT_EQ(run.Count("setpan tamlo9 10000"), 2);
    EXPECT_EQ(run.Events("voice "),
              (std::vector<std::string>{"voice 0", "voice 0", "voice 1", "voice 0", "voice 0"}));
    EXPECT_TRUE(run.Heard(" F1, 112 "));
    EXPECT_EQ(run.Count("No screen reader is running."), 2);
    EXPECT_TRUE(run.Heard("The verdict: all is well, and you can play."));
    EXPECT_EQ(run.Events().back(), "end");
    EXPECT_EQ(check.status, 0);
    for (const char* line : {"Good. Left and right are as they should be.\n", "Version: 1.2\n",
                             "Good. Your files are in the folder ~/tolvane, and can be written.\n",
                             "Keys pressed: letter Q, 81; F1, 112; Escape, 27; letter A, 65; "}) {
        EXPECT_NE(check.Report().find(line), std::string::npos) << line << check.Report();
    }
}

TEST(Doctor, EscapeGoesToTheVerdictAndTheReport) {
    Check check;
    const auto run = check.Run("upon \"3 voices are installed\" escape");
    EXPECT_FALSE(run.Heard("sound files are in order"));
    EXPECT_FALSE(run.Heard("Try next"));
    EXPECT_TRUE(run.Heard("The verdict: all is well, and you can play."));
    EXPECT_TRUE(run.Heard("The report for those who help is the file "));
    EXPECT_EQ(run.Events().back(), "end");
    EXPECT_EQ(check.status, 0);
    EXPECT_NE(check.Report().find("All 93 sound files are in order."), std::string::npos);
    EXPECT_NE(check.Report().find("in blocks of 256 frames"), std::string::npos);

    const auto again =
        check.Run("press up up enter\nupon \"3 voices are installed\" escape\npress enter");
    EXPECT_EQ(again.Count("No screen reader is running."), 1) << "a part is left";
    EXPECT_EQ(again.Count("sound files are in order"), 1);
    EXPECT_EQ(again.Events().back(), "end");
}

TEST(Doctor, TellsWhatIsWrong) {
    Check check;
    check.around.answers = false;
    check.around.reports = "";
    check.around.readers = {{"Orca", "43.1", "Press Insert and S.", true},
                            {"BRLTTY", "", "Welcome.", false}};
    check.sound = {"", 256, 0, false, 0};
    const TemporaryFolder empty;
    check.game.current_directory = empty.Path();
    const auto run = check.Run("voices 0\n");
    EXPECT_TRUE(run.Heard("No voice is installed, or its data are damaged."));
    EXPECT_TRUE(run.Heard("Sound files are missing: tamlo1 tamlo2 "));
    EXPECT_TRUE(run.Heard("No sound card answers"));
    EXPECT_TRUE(run.Heard("Orca, version 43.1, is running. Press Insert and S."));
    EXPECT_TRUE(
        run.Heard("something has to be mended: the voices, the sound files, the sound card."));
    EXPECT_TRUE(run.Heard("is the file " + check.game.documents / "tolvane/doctor.txt"));
    EXPECT_EQ(check.status, 1);
}

TEST(Doctor, NamesBrokenVoicesAFullDiskAndAlteredSounds) {
    Check check;
    check.around.answers = false;
    check.around.voice_faults = [] {
        return std::vector<VoiceFault>{{"espeak-ng", false, "espeak-ng-data"}};
    };
    check.around.disk_is_full = [](const std::string&) { return true; };
    check.game.documents.Write("tolvane/tamlo-doctor.tmp/in the way", "");
    const TemporaryFolder sounds;
    sounds.Write("tamlo9.wav", "no bell");
    check.game.current_directory = sounds.Path();
    const auto run = check.Run("");
    EXPECT_TRUE(run.Heard("The voices of espeak-ng break down"));
    EXPECT_TRUE(run.Heard("Install the package espeak-ng-data again."));
    EXPECT_TRUE(run.Heard("can not be written: the disk is full."));
    EXPECT_TRUE(run.Heard("Sound files are altered: tamlo9. "));
    EXPECT_TRUE(run.Heard("mended: the voices of espeak-ng, your files, the sound files."));
    EXPECT_EQ(check.status, 1);
}

TEST(Doctor, NamesOfFilesDoNotCommandTheTerminal) {
    Check check;
    check.game.Write("tamlo\x1b[2J\nFault. Made up", "x");
    check.Run("press up enter");
    EXPECT_NE(check.Report().find("File tamlo [2J Fault. Made up: 1 bytes\n"), std::string::npos)
        << check.Report();
    EXPECT_EQ(check.Report().find('\x1b'), std::string::npos);
}

TEST(Doctor, EarsThatAreNotApartAreAHint) {
    Check check;
    check.Run("press enter n enter escape");
    EXPECT_NE(check.Report().find("there is something to know about left and right."),
              std::string::npos);
}

TEST(Doctor, KnowsScreenReadersByTheirProcesses) {
    const TemporaryFolder proc;
    proc.Write("1/comm", "init\n");
    proc.Write("77/comm", "orca\n");
    proc.Write("self/comm", "brltty\n");
    proc.Write("modules", "speakup_soft 16384 1 - Live 0x0\nspeakup 131072 2 - Live 0x0\n");
    proc.Write("status", "Package: other\nVersion: 1\n\nPackage: orca\nVersion: 1:43.1-1+b1\n\n");
    const auto readers = ScreenReaders(proc.Path(), proc.Path() + "/status", false);
    ASSERT_EQ(readers.size(), 2u);
    EXPECT_EQ(readers[0].name, "Orca");
    EXPECT_EQ(readers[0].version, "43.1");
    EXPECT_NE(readers[0].advice.find("Before you start the game"), std::string::npos);
    EXPECT_EQ(readers[1].name, "Speakup");
    proc.Write("status", "Package: orca\nStatus: ok\nVersion: 47.0-1\n");
    EXPECT_NE(ScreenReaders(proc.Path(), proc.Path() + "/status", false)[0].advice.find("sleep"),
              std::string::npos);
    proc.Write("78/comm", "brltty\n");
    EXPECT_TRUE(ScreenReaders(proc.Path(), proc.Path() + "/status", false).back().asks_for_care);
    EXPECT_FALSE(ScreenReaders(proc.Path(), proc.Path() + "/status", true).back().asks_for_care);
    EXPECT_TRUE(ScreenReaders(proc.Path() + "/nowhere", "", true).empty());
}

}  // namespace
}  // namespace tamlo
