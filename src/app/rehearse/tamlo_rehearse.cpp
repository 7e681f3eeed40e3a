// tamlo-rehearse: plays a script on the real game in virtual time and writes down everything that
// would be spoken and heard. docs/rehearsal.md is its contract.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "app/sounds_folder.h"
#include "game/form1.h"
#include "game/game_fields.h"
#include "rehearsal/rehearsal.h"
#include "services/disk_files.h"
#include "services/stray_signals.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

constexpr int wrong_use = 2;

const std::string usage =
    "usage: tamlo-rehearse [--documents DIR] [--sounds DIR] [--cwd DIR] [SCRIPT]";

/// What is wrong with the arguments or the script, for standard error.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Arguments {
    std::optional<std::string> documents;
    std::optional<std::string> sounds;
    std::optional<std::string> current_directory;
    std::string script = "-";
};

Arguments ReadArguments(int argc, char** argv) {
    Arguments arguments;
    bool script_given = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        std::optional<std::string>* option = argument == "--documents" ? &arguments.documents
                                             : argument == "--sounds"  ? &arguments.sounds
                                             : argument == "--cwd" ? &arguments.current_directory
                                                                   : nullptr;
        if (option) {
            if (++i == argc) throw WrongUse(argument + " needs a folder");
            *option = argv[i];
        } else if (script_given || (argument.starts_with('-') && argument != "-")) {
            throw WrongUse(usage + "; \"" + argument + "\" is too much");
        } else {
            arguments.script = argument;
            script_given = true;
        }
    }
    return arguments;
}

/// The folder's absolute path, without a "/" at the end.
std::string Folder(const std::string& option, const std::string& path) {
    std::error_code error;
    const fs::path folder = fs::canonical(path, error);
    if (error || !fs::is_directory(folder)) {
        throw WrongUse(option + ": there is no folder \"" + path + "\"");
    }
    return folder.string();
}

/// A temporary folder for a rehearsal without a given one, removed at its end.
class FreshFolder {
  public:
    FreshFolder() {
        std::string pattern = (fs::temp_directory_path() / "tamlo-rehearse-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw WrongUse("no temporary folder can be made for the documents");
        }
        path_ = pattern;
    }
    FreshFolder(const FreshFolder&) = delete;
    FreshFolder& operator=(const FreshFolder&) = delete;
    ~FreshFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

std::string ReadText(const std::string& script) {
    if (script == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
    std::ifstream file(script, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file) throw WrongUse("the script \"" + script + "\" can't be read");
    return text;
}

Script ParseScript(const std::string& text) {
    auto script = ReadScript(text, {WhyNotSet, WhyNotShow});
    if (const auto* error = std::get_if<ScriptError>(&script)) {
        throw WrongUse("line " + std::to_string(error->line) + ": " + error->what);
    }
    return std::get<Script>(std::move(script));
}

RehearsalFolders FindFolders(const Arguments& arguments, std::optional<FreshFolder>& fresh) {
    RehearsalFolders folders;
    folders.sounds = Folder("--sounds", arguments.sounds.value_or(SoundsFolder()));
    folders.current_directory =
        Folder("--cwd", arguments.current_directory.value_or(folders.sounds));
    if (!arguments.documents) {
        folders.documents = fresh.emplace().Path();
    } else if (!arguments.documents->empty()) {
        folders.documents = Folder("--documents", *arguments.documents);
    }
    return folders;
}

int Rehearse(const Arguments& arguments) {
    Script script = ParseScript(ReadText(arguments.script));
    std::optional<FreshFolder> fresh;
    RehearsalFolders folders = FindFolders(arguments, fresh);
    DiskFiles disk;
    Rehearsal rehearsal(std::move(script), std::move(folders), disk, [](std::string_view lines) {
        std::fwrite(lines.data(), 1, lines.size(), stdout);
    });
    Form1 game(rehearsal.Services());
    const FieldAccess fields{[&game](std::string_view field, std::string_view value) {
                                 SetField(game.gs, field, value);
                             },
                             [&game](std::string_view field) { return ShowField(game.gs, field); }};
    const RehearsalResult result = rehearsal.Run([&game] { game.Form_Load(); }, fields);
    if (!result.message.empty()) std::cerr << "tamlo-rehearse: " << result.message << "\n";
    return result.exit_status;
}

}  // namespace
}  // namespace tamlo

int main(int argc, char** argv) {
    // If the reader of the output stops early, the temporary folder is still removed.
    tamlo::IgnoreStraySignals();
    try {
        if (argc == 2 && std::string_view(argv[1]) == "--help") {
            return std::puts(tamlo::usage.c_str()) < 0 ? tamlo::wrong_use : 0;
        }
        const int status = tamlo::Rehearse(tamlo::ReadArguments(argc, argv));
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
        std::cerr << "tamlo-rehearse: the trace can't be written\n";
    } catch (const std::exception& wrong) {
        std::cerr << "tamlo-rehearse: " << wrong.what() << "\n";
    }
    return tamlo::wrong_use;
}
