// Finding the Documents folder.
#include <gtest/gtest.h>

#include "linux/system/user_dirs.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

TEST(UserDirsTest, ReadsTheLineOfDocuments) {
    const struct {
        const char* text;
        const char* folder;
    } cases[] = {
        {"XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n", "/home/anna/Dokumente"},
        {"# a comment\n  XDG_DOCUMENTS_DIR = \"/mnt/papers\"\r\n", "/mnt/papers"},
        {"XDG_MUSIC_DIR=\"$HOME/Music\"\nXDG_DOCUMENTS_DIR=\"$HOME/\"", "/home/anna"},
        {"XDG_DOCUMENTS_DIR=\"$HOME\"", "/home/anna"},
        {"XDG_DOCUMENTS_DIR=$HOME/Papiers/", "/home/anna/Papiers"},
        {R"(XDG_DOCUMENTS_DIR="$HOME/a \"b\" \\ \$c")", R"(/home/anna/a "b" \ $c)"},
        {"XDG_DOCUMENTS_DIR=\"$HOME/Документы\"", "/home/anna/Документы"},
        {"XDG_DOCUMENTS_DIR=\"/one\"\nXDG_DOCUMENTS_DIR=\"/two\"\n", "/two"},
        {"XDG_DOCUMENTS_DIR=\"/one\"\nXDG_DOCUMENTS_DIR=\"relative\"\n", "/one"},
        {"#XDG_DOCUMENTS_DIR=\"/one\"", ""},
        {"XDG_DOCUMENTS_DIRS=\"/one\"", ""},
        {"XDG_DOCUMENTS_DIR=\"$HOMEWORK/x\"", ""},
        {"XDG_DOCUMENTS_DIR=\"\\$HOME/x\"", ""},
        {"XDG_DOCUMENTS_DIR=\"/never closed", ""},
        {"XDG_DOCUMENTS_DIR=\"/one\\", ""},
        {"XDG_DOCUMENTS_DIR=", ""},
        {"XDG_DOCUMENTS_DIR", ""},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DocumentsInUserDirs(c.text, "/home/anna"), c.folder) << c.text;
    EXPECT_EQ(DocumentsInUserDirs("XDG_DOCUMENTS_DIR=\"$HOME/x\"", ""), "");
    EXPECT_EQ(DocumentsInUserDirs(std::string("XDG_DOCUMENTS_DIR=\"/a\0b\"", 25), "/h"), "");
}

TEST(UserDirsTest, SettlesOnAFolderThatIsThere) {
    const struct {
        const char* line;
        const char* folder;  ///< below the home
    } cases[] = {
        {"XDG_DOCUMENTS_DIR=\"$HOME/new/Papers\"", "/new/Papers"},
        {"XDG_DOCUMENTS_DIR=\"$HOME\"", ""},
        {"XDG_DOCUMENTS_DIR=\"$HOME/dangling\"", "/Documents"},
        {"XDG_DOCUMENTS_DIR=\"$HOME/a file/below\"", "/Documents"},
        {"", "/Documents"},
    };
    for (const auto& c : cases) {
        const TemporaryFolder home;
        fs::create_symlink("nowhere", home / "dangling");
        home.Write("a file", "x");
        home.Write("user-dirs.dirs", c.line);
        EXPECT_EQ(DocumentsFolder(home.Path(), home.Path()), home.Path() + c.folder) << c.line;
        EXPECT_TRUE(fs::is_directory(home.Path() + c.folder)) << c.line;
    }
    const TemporaryFolder home;
    home.Write("Documents", "a file in the folder's place");
    EXPECT_EQ(DocumentsFolder(home.Path(), ""), home.Path());
    EXPECT_EQ(DocumentsFolder(home / "missing", ""), "");
    EXPECT_EQ(DocumentsFolder("", ""), "");
}

TEST(UserDirsTest, AsksTheEnvironment) {
    const TemporaryFolder home;
    home.Write("user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/Papers\"");
    ::setenv("HOME", home.Path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", "relative counts as unset", 1);
    EXPECT_EQ(DocumentsFolder(), home / "Documents");
    ::setenv("XDG_CONFIG_HOME", home.Path().c_str(), 1);
    EXPECT_EQ(DocumentsFolder(), home / "Papers");
}

}  // namespace
}  // namespace tamlo
