#include "app/rehearse/script_run.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <variant>

#include "app/sounds_folder.h"
#include "game/form1.h"
#include "game/game_fields.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

/// The folder's absolute path, without a "/" at the end.
std::string Folder(const std::string& option, const std::string& path) {
    std::error_code error;
    const fs::path folder = fs::canonical(path, error);
    if (error || !fs::is_directory(folder)) {
        throw WrongUse(option + ": there is no folder \"" + path + "\"");
    }
    return folder.string();
}

std::string ReadText(const std::string& script) {
    if (script == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
    std::ifstream file(script, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file) throw WrongUse("the script \"" + script + "\" can't be read");
    return text;
}

}  // namespace

FreshFolder::FreshFolder() {
    std::string pattern = (fs::temp_directory_path() / "tamlo-rehearse-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw WrongUse("no temporary folder can be made for the documents");
    }
    path_ = pattern;
}

FreshFolder::~FreshFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::optional<std::string>* FolderOption(ScriptArguments& arguments, const std::string& argument) {
    if (argument == "--documents") return &arguments.documents;
    if (argument == "--sounds") return &arguments.sounds;
    if (argument == "--cwd") return &arguments.current_directory;
    return nullptr;
}

Script ReadScriptFile(const std::string& path) {
    auto script = ReadScript(ReadText(path), {WhyNotSet, WhyNotShow});
    if (const auto* error = std::get_if<ScriptError>(&script)) {
        throw WrongUse("line " + std::to_string(error->line) + ": " + error->what);
    }
    return std::get<Script>(std::move(script));
}

RehearsalFolders FindFolders(const ScriptArguments& arguments, std::optional<FreshFolder>& fresh) {
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

FieldAccess FieldsOf(Form1& game) {
    return {[&game](std::string_view field, std::string_view value) {
                SetField(game.gs, field, value);
            },
            [&game](std::string_view field) { return ShowField(game.gs, field); }};
}

}  // namespace tamlo
