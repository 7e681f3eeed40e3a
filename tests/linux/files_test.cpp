// What the game may expect of the disk.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "services/disk_files.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;
using Outcome = ReadResult::Outcome;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FilesTest : public ::testing::Test {
  protected:
    TemporaryFolder folder_;
    DiskFiles files_;
};

/// Limits the length of files while it lives: writes past it fail as on a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t length) {
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{length, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

  private:
    rlimit before_ = {};
};

TEST_F(FilesTest, LooksNamesUpAsTheyStandElseWithoutCase) {
    folder_.Write("TAMLO.cfg", "upper");
    folder_.Write("both.txt", "small");
    folder_.Write("BOTH.txt", "big");
    fs::create_directory(folder_ / "Tolvane");
    fs::create_directory(folder_ / "BOTH.TXT");
    const std::string base = folder_.Path() + "/";
    const struct {
        const char* wanted;
        const char* file;
        const char* found_folder;
    } cases[] = {
        {"tamlo.CFG", "TAMLO.cfg", nullptr},  {"both.txt", "both.txt", "BOTH.TXT"},
        {"Both.txt", "BOTH.txt", "BOTH.TXT"}, {"tolvane", nullptr, "Tolvane"},
        {"tolvane/", nullptr, "Tolvane"},     {"tamlo.cf", nullptr, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.wanted);
        EXPECT_EQ(files_.FindFile(base + c.wanted), c.file ? base + c.file : "");
        EXPECT_EQ(files_.FindFolder(base + c.wanted), c.found_folder ? base + c.found_folder : "");
    }
    EXPECT_EQ(files_.Read(base + "tamlo.cfg").bytes, "upper");
    EXPECT_EQ(files_.Length(base + "tamlo.cfg"), 5U);
    EXPECT_EQ(files_.Length(base + "tolvane"), std::nullopt);
}

TEST_F(FilesTest, ListsMatchingFilesInOrder) {
    for (const char* name :
         {"TamloStreetsb.txt", "tamlostreetsA.txt", "tamlostreets.txt", "tamlostreetsC.txt.bak",
          "xtamlostreets.txt", "tamlostreets\xc3\xa9.TXT"})
        folder_.Write(name, "x");
    fs::create_directory(folder_ / "tamlostreetsfolder.txt");
    EXPECT_THAT(files_.List(folder_.Path(), "tamlostreets*.txt"),
                ElementsAre("tamlostreets.txt", "tamlostreetsA.txt", "TamloStreetsb.txt",
                            "tamlostreets\xc3\xa9.TXT"));
    EXPECT_THAT(files_.List(folder_.Path(), "*streets*C*b*k"),
                ElementsAre("tamlostreetsC.txt.bak"));
    EXPECT_THAT(files_.List(folder_ / "nowhere", "*"), IsEmpty());
}

TEST_F(FilesTest, AListedNameIsThatFileAndNoOther) {
    for (const char* name :
         {"a\\..\\..\\victim", "\\..\\victim", "\\", "a\n", "a ", "..a", "-a", "*"}) {
        SCOPED_TRACE(name);
        TemporaryFolder above;
        above.Write("victim", "kept");
        above.Write(std::string("folder/") + name, "listed");
        const auto listed = files_.List(above / "folder", "*");
        ASSERT_THAT(listed, ElementsAre(name));
        const std::string path = (above / "folder/") + listed.front();
        EXPECT_EQ(files_.Read(path).bytes, "listed");
        EXPECT_TRUE(files_.Replace(path, "new\n") && files_.Append(path, "er"));
        EXPECT_EQ(above.Content(std::string("folder/") + name), "new\ner");
        EXPECT_TRUE(files_.Rename(path, path + "2") && files_.Delete(path + "2"));
        EXPECT_THAT(files_.List(above / "folder", "*"), IsEmpty());
        EXPECT_EQ(above.Content("victim"), "kept");
    }
}

TEST_F(FilesTest, ReadsRegularFilesOnly) {
    folder_.Write("bytes", std::string("a\0\r\n\xff", 5));
    fs::create_directory(folder_ / "folder");
    fs::create_symlink("nowhere", folder_ / "dangling");
    fs::create_symlink("/dev/zero", folder_ / "endless");
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    folder_.Write("large", "");
    fs::resize_file(folder_ / "large", 64 * 1024 * 1024 + 1);

    EXPECT_EQ(files_.Read(folder_ / "bytes").bytes, std::string("a\0\r\n\xff", 5));
    const struct {
        std::string path;
        Outcome outcome;
    } cases[] = {
        {folder_ / "bytes", Outcome::ok},
        {folder_ / "none", Outcome::missing},
        {folder_ / "none/none", Outcome::missing},
        {folder_ / "bytes/none", Outcome::missing},
        {folder_ / "dangling", Outcome::missing},
        {folder_ / "folder", Outcome::failed},
        {folder_ / "endless", Outcome::failed},
        {folder_ / "pipe", Outcome::failed},
        {folder_ / "large", Outcome::failed},
        {"", Outcome::missing},
        {folder_ / std::string(300, 'n'), Outcome::failed},
        {folder_ / std::string("bytes\0x", 7), Outcome::missing},
    };
    for (const auto& c : cases) EXPECT_EQ(files_.Read(c.path).outcome, c.outcome) << c.path;
    fs::resize_file(folder_ / "large", 64 * 1024 * 1024);
    EXPECT_EQ(files_.Read(folder_ / "large").bytes.size(), 64U * 1024 * 1024);
}

TEST_F(FilesTest, ReplacesWholeAndKeepsWhatIsAroundTheContent) {
    EXPECT_TRUE(files_.Replace(folder_ / "new.sav", "first"));
    EXPECT_EQ(folder_.Content("new.sav"), "first");

    folder_.Write("OLD.sav", "old");
    fs::permissions(folder_ / "OLD.sav", fs::perms(0640));
    EXPECT_TRUE(files_.Replace(folder_ / "old.SAV", "changed"));
    EXPECT_EQ(folder_.Content("OLD.sav"), "changed");
    EXPECT_EQ(fs::status(folder_ / "OLD.sav").permissions(), fs::perms(0640));

    fs::create_directory(folder_ / "elsewhere");
    folder_.Write("elsewhere/real", "old");
    fs::create_symlink("elsewhere/real", folder_ / "link");
    fs::create_symlink("elsewhere/fresh", folder_ / "dangling");
    EXPECT_TRUE(files_.Replace(folder_ / "link", "through"));
    EXPECT_TRUE(files_.Replace(folder_ / "dangling", "made"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link") && fs::is_symlink(folder_ / "dangling"));
    EXPECT_EQ(folder_.Content("elsewhere/real"), "through");
    EXPECT_EQ(folder_.Content("elsewhere/fresh"), "made");
    EXPECT_EQ(folder_.Entries(), 5) << "a replacement leaves nothing beside";
}

TEST_F(FilesTest, RefusesWhatCannotBeReplaced) {
    fs::create_directory(folder_ / "folder");
    fs::create_symlink("circle", folder_ / "circle");
    fs::create_symlink("/dev/null", folder_ / "device");
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    for (const char* name : {"folder", "circle", "device", "pipe", "nowhere/file"}) {
        EXPECT_FALSE(files_.Replace(folder_ / name, "x")) << name;
        EXPECT_FALSE(files_.Append(folder_ / name, "x")) << name;
    }
    EXPECT_FALSE(files_.Replace("", "x"));
    EXPECT_FALSE(files_.Replace(folder_ / std::string(300, 'n'), "x"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(folder_.Entries(), 4);
}

TEST_F(FilesTest, AFullDiskLeavesTheOldContent) {
    folder_.Write("game.sav", "old");
    folder_.Write("log.txt", "line 1\r\n");
    {
        const FullDisk full(12);
        EXPECT_FALSE(files_.Replace(folder_ / "game.sav", "longer than twelve bytes"));
        EXPECT_FALSE(files_.Append(folder_ / "log.txt", "line 2\r\n")) << "4 bytes have room";
        EXPECT_FALSE(files_.Append(folder_ / "fresh.txt", "longer than twelve bytes"));
    }
    EXPECT_EQ(folder_.Content("game.sav"), "old");
    EXPECT_EQ(folder_.Content("log.txt"), "line 1\r\n");
    EXPECT_EQ(folder_.Entries(), 2) << "neither a leftover nor an empty log";
    EXPECT_TRUE(files_.Append(folder_ / "LOG.txt", "line 2\r\n"));
    EXPECT_EQ(folder_.Content("log.txt"), "line 1\r\nline 2\r\n");
}

TEST_F(FilesTest, AppendingTakesOffWhatAPowerCutLeft) {
    const auto zeros = [](std::size_t count) { return std::string(count, '\0'); };
    const std::pair<std::string, std::string> logs[] = {
        {"line 1\r\n" + zeros(3), "line 1\r\nx"},
        {"line 1\r\nli" + zeros(9000), "line 1\r\nli\r\nx"},
        {zeros(5000), "x"},
        {"edited" + zeros(1) + "by hand", "edited" + zeros(1) + "by hand\r\nx"},
    };
    for (const auto& [before, after] : logs) {
        folder_.Write("log.txt", before);
        EXPECT_TRUE(files_.Append(folder_ / "log.txt", "x"));
        EXPECT_EQ(folder_.Content("log.txt"), after);
    }
}

TEST_F(FilesTest, AKilledReplacementLeavesTheOldContentOrTheNew) {
    folder_.Write("game.sav", std::string(100000, 'a'));
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) files_.Replace(folder_ / "game.sav", std::string(100000, 'b'));
        }
        ::usleep(static_cast<useconds_t>(500 + 313 * round));
        ::kill(child, SIGKILL);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        const std::string content = folder_.Content("game.sav");
        ASSERT_EQ(content, std::string(100000, content.empty() ? '?' : content.front()));
        EXPECT_THAT(files_.List(folder_.Path(), "*"), ElementsAre("game.sav"));
    }
    folder_.Write(".tamlo-unfinished-1-1", "left by a kill");
    EXPECT_TRUE(files_.Replace(folder_ / "game.sav", "c"));
    EXPECT_EQ(folder_.Entries(), 1) << "the next replacement clears leftovers away";
}

TEST_F(FilesTest, RenamesOnlyToNamesThatAreFree) {
    folder_.Write("Tamlo.sav", "bad");
    folder_.Write("TAKEN.sav", "taken");
    fs::create_symlink("nowhere", folder_ / "dangling");
    EXPECT_FALSE(files_.Rename(folder_ / "tamlo.sav", folder_ / "taken.SAV"));
    EXPECT_FALSE(files_.Rename(folder_ / "tamlo.sav", folder_ / "Dangling"));
    EXPECT_FALSE(files_.Rename(folder_ / "missing", folder_ / "free"));
    EXPECT_FALSE(files_.Rename(folder_ / "tamlo.sav", folder_ / "nowhere/free"));
    EXPECT_TRUE(files_.Rename(folder_ / "tamlo.sav", folder_ / "free"));
    EXPECT_EQ(folder_.Content("free") + folder_.Content("TAKEN.sav"), "badtaken");
    EXPECT_EQ(folder_.Entries(), 3);
}

TEST_F(FilesTest, DeletesFilesAndMakesFolders) {
    folder_.Write("Tamlo.sav", "x");
    EXPECT_TRUE(files_.Delete(folder_ / "TAMLO.sav"));
    EXPECT_FALSE(files_.Delete(folder_ / "TAMLO.sav"));
    EXPECT_TRUE(files_.MakeFolder(folder_ / "tolvane/"));
    EXPECT_FALSE(files_.MakeFolder(folder_ / "TOLVANE"));
    EXPECT_FALSE(files_.MakeFolder(folder_ / "no/parent"));
    EXPECT_FALSE(files_.Delete(folder_ / "tolvane"));
    EXPECT_EQ(folder_.Entries(), 1);
    EXPECT_EQ(files_.CurrentDirectory(), fs::current_path().string());
}

}  // namespace
}  // namespace tamlo
