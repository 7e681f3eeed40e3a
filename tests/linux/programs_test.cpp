// Starting other programs.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include "audio/eventually.h"
#include "linux/system/programs.h"
#include "linux/system/system_desktop.h"
#include "linux/system/watched_run.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

void WriteScript(const TemporaryFolder& folder, const std::string& name, const std::string& text) {
    folder.Write(name, "#!/bin/sh\n" + text);
    fs::permissions(folder / name, fs::perms::owner_all);
}

TEST(ProgramsTest, StartsInAnOwnSessionWithArgumentsAsTheyAre) {
    const TemporaryFolder folder;
    WriteScript(
        folder, "tell",
        "cd \"$1\"; printf '%s\\n' \"$2\" $$ $(cut -d' ' -f6 /proc/$$/stat) > new; mv new told");
    ASSERT_TRUE(
        StartProgram({folder / "tell", folder.Path(), "$(touch x); 'two words'"}, StartAs::quiet));
    ASSERT_TRUE(Eventually([&] { return fs::exists(folder / "told"); }));
    std::istringstream told(folder.Content("told"));
    std::string argument;
    long process = 0;
    long session = 0;
    std::getline(told, argument);
    told >> process >> session;
    EXPECT_EQ(argument, "$(touch x); 'two words'");
    EXPECT_EQ(process, session);
    EXPECT_TRUE(Eventually([&] { return ::kill(static_cast<pid_t>(process), 0) != 0; }))
        << "a zombie is left";
}

TEST(ProgramsTest, SaysWhatCannotBeStarted) {
    const TemporaryFolder folder;
    folder.Write("not executable", "#!/bin/sh\n");
    for (const StartAs as : {StartAs::own_session, StartAs::quiet}) {
        EXPECT_FALSE(StartProgram({folder / "not executable"}, as));
        EXPECT_FALSE(StartProgram({folder / "missing"}, as));
        EXPECT_FALSE(StartProgram({""}, as));
        EXPECT_FALSE(StartProgram({}, as));
    }
    EXPECT_FALSE(RunInTerminal({"no such editor on any system"}));
}

TEST(ProgramsTest, WaitsForAProgramInTheTerminal) {
    const TemporaryFolder folder;
    WriteScript(folder, "editor", "sleep 0.1; echo edited > \"$1\"");
    EXPECT_TRUE(RunInTerminal({folder / "editor", folder / "file"}));
    EXPECT_EQ(folder.Content("file"), "edited\n");
}

TEST(ProgramsTest, TheLauncherStartsFromTheCurrentDirectory) {
    const TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    WriteScript(folder, "launch me.exe", "pwd > new; mv new told");
    SystemDesktop desktop({});
    EXPECT_TRUE(desktop.StartLauncher("launch me.exe"));
    EXPECT_FALSE(desktop.StartLauncher("sh")) << "programs along PATH are not meant";
    EXPECT_TRUE(Eventually([&] { return fs::exists("told"); }));
    EXPECT_EQ(folder.Content("told"), fs::current_path().string() + "\n");
    fs::current_path(before);
}

TEST(ProgramsTest, KnowsItsOwnFolder) {
    EXPECT_EQ(ProgramPath(), fs::read_symlink("/proc/self/exe").string());
    EXPECT_TRUE(fs::exists(ProgramFolder() + "/" + fs::path(ProgramPath()).filename().string()));
}

TEST(WatchedRunTest, TellsHowTheProgramEnded) {
    using std::chrono::seconds;
    const auto sleep = [] { return ::pause(); };
    const auto fail_aside = []() -> int {
        std::thread([] { throw std::runtime_error("no room in /home/me/letters"); }).join();
        return 0;
    };
    EXPECT_EQ(RunWatched([] { return 7; }).status, 7);
    EXPECT_EQ(RunWatched(sleep, seconds(0)).signal, SIGKILL);
    const RunEnd fault = RunWatched(fail_aside);
    EXPECT_EQ(fault.signal, SIGABRT);
    EXPECT_EQ(fault.notes.substr(0, fault.notes.find('\n')), "St13runtime_error: no room in ");
}

}  // namespace
}  // namespace tamlo
