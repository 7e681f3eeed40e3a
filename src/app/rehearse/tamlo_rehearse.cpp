// tamlo-rehearse: plays a script on the real game in virtual time and writes down everything that
// would be spoken and heard. docs/rehearsal.md is its contract.
#include <cstdio>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "app/rehearse/script_run.h"
#include "game/form1.h"
#include "services/disk_files.h"
#include "services/stray_signals.h"

namespace tamlo {
namespace {

const std::string usage =
    "usage: tamlo-rehearse [--documents DIR] [--sounds DIR] [--cwd DIR] [SCRIPT]";

WrongUse TooMuch(const std::string& argument) {
    return WrongUse(usage + "; \"" + argument + "\" is too much");
}

ScriptArguments ReadArguments(int argc, char** argv) {
    ScriptArguments arguments;
    bool script_given = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (std::optional<std::string>* const option = FolderOption(arguments, argument)) {
            if (++i == argc) throw WrongUse(argument + " needs a folder");
            *option = argv[i];
        } else if (script_given || (argument.starts_with('-') && argument != "-")) {
            throw TooMuch(argument);
        } else {
            arguments.script = argument;
            script_given = true;
        }
    }
    return arguments;
}

int Rehearse(const ScriptArguments& arguments) {
    Script script = ReadScriptFile(arguments.script);
    std::optional<FreshFolder> fresh;
    RehearsalFolders folders = FindFolders(arguments, fresh);
    DiskFiles disk;
    Rehearsal rehearsal(std::move(script), std::move(folders), disk, [](std::string_view lines) {
        std::fwrite(lines.data(), 1, lines.size(), stdout);
    });
    Form1 game(rehearsal.Services());
    const RehearsalResult result = rehearsal.Run([&game] { game.Form_Load(); }, FieldsOf(game));
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
