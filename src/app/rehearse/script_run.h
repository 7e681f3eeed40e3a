// What programs that play scripts share: their script, their folders, the fields of the game.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "rehearsal/prompter.h"
#include "rehearsal/rehearsal.h"
#include "rehearsal/script.h"

namespace tamlo {

class Form1;

/// Exit status for wrong arguments, a wrong script, or files that can't be used.
inline constexpr int wrong_use = 2;

/// What is wrong with the arguments or the script, for the line on standard error.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A temporary folder, removed at the end. Throws WrongUse when it can't be made.
class FreshFolder {
  public:
    FreshFolder();
    FreshFolder(const FreshFolder&) = delete;
    FreshFolder& operator=(const FreshFolder&) = delete;
    ~FreshFolder();
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

struct ScriptArguments {
    std::optional<std::string> documents;
    std::optional<std::string> sounds;
    std::optional<std::string> current_directory;
    std::string script = "-";
};

/// The option that takes a folder; null if `argument` is no such option.
std::optional<std::string>* FolderOption(ScriptArguments& arguments, const std::string& argument);

/// The script's steps, from a file or, for "-", standard input. Throws WrongUse.
Script ReadScriptFile(const std::string& path);

/// The folders of a run; `fresh` is made for the documents when none are given. Throws WrongUse.
RehearsalFolders FindFolders(const ScriptArguments& arguments, std::optional<FreshFolder>& fresh);

/// The fields of the game, which must outlive the result.
FieldAccess FieldsOf(Form1& game);

}  // namespace tamlo
