// The lines of the last runs.
#include "linux/system/said_lines.h"

#include <gtest/gtest.h>

#include <regex>

#include "services/disk_files.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

TEST(SaidLinesTest, TheLastFiveRunsCanBeReadWhileTheyGoOn) {
    const TemporaryFolder folder;
    DiskFiles files;
    for (int run = 1; run <= 7; ++run) {
        folder.Write("said 2020-01-0" + std::to_string(run) + " 10.00.00.txt", "old");
    }
    folder.Write("doctor.txt", "kept");
    SaidLines lines(folder.Path());
    lines.Add("start game");
    lines.Add("");
    lines.Add("[a new order]");
    const auto names = files.List(folder.Path(), "said *");
    ASSERT_EQ(names.size(), 5U);
    EXPECT_EQ(names.front(), "said 2020-01-04 10.00.00.txt");
    const std::string time = R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d )";
    EXPECT_TRUE(std::regex_match(folder.Content(names.back()),
                                 std::regex(time + "start game\n" + time + R"(\[a new order\]\n)")))
        << folder.Content(names.back());
    EXPECT_TRUE(folder.Has("doctor.txt"));
}

TEST(SaidLinesTest, WithoutAFolderNothingIsWrittenAndNothingIsWrong) {
    for (const char* folder : {"", "/nonexistent", "/dev/null"}) {
        SaidLines lines(folder);
        lines.Add("start game");
    }
}

}  // namespace
}  // namespace tamlo
