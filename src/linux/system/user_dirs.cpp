// Reading the user-dirs file, and settling on a folder that is really there.
#include "linux/system/user_dirs.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <vector>

#include "services/disk_files.h"

namespace tamlo {
namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// What stands behind "XDG_DOCUMENTS_DIR =" in a line; nothing in any other line.
std::optional<std::string_view> ValueInLine(std::string_view line) {
    constexpr std::string_view key = "XDG_DOCUMENTS_DIR";
    line = Trimmed(line);
    if (!line.starts_with(key)) return std::nullopt;
    line = Trimmed(line.substr(key.size()));
    if (!line.starts_with('=')) return std::nullopt;
    return Trimmed(line.substr(1));
}

/// Takes the quotes and the backslashes off; nothing if a quote is not closed.
std::optional<std::string> Unquoted(std::string_view value) {
    const bool quoted = value.starts_with('"');
    std::string text;
    for (std::size_t i = quoted ? 1 : 0; i < value.size(); ++i) {
        if (value[i] == '"') return quoted ? std::optional(text) : std::nullopt;
        if (value[i] == '\\' && ++i == value.size()) return std::nullopt;
        text += value[i];
    }
    return quoted ? std::nullopt : std::optional(text);
}

/// The folder that a value stands for: absolute, without a '/' at the end; empty if it is none.
std::string Expanded(std::string_view value, const std::string& home) {
    constexpr std::string_view variable = "$HOME";
    const bool at_home = value.starts_with(variable) || value.starts_with("\"$HOME");
    const std::optional<std::string> text = Unquoted(value);
    if (!text || text->find('\0') != std::string::npos) return "";
    std::string folder = *text;
    if (at_home) {
        const std::string rest = folder.substr(variable.size());
        if (home.empty() || !(rest.empty() || rest.front() == '/')) return "";
        folder = home + rest;
    }
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder.starts_with('/') ? folder : "";
}

/// Whether the folder is there, after creating it and its parents if necessary.
bool Provide(const std::string& folder) {
    std::error_code failure;
    if (std::filesystem::is_directory(folder, failure)) return true;
    std::filesystem::create_directories(folder, failure);
    return std::filesystem::is_directory(folder, failure);
}

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    // A relative path means something else in every folder, so it counts as not set.
    return value != nullptr && value[0] == '/' ? value : "";
}

std::string HomeInPasswordEntry() {
    passwd entry = {};
    passwd* found = nullptr;
    std::vector<char> buffer(65536);
    ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr && found->pw_dir[0] == '/' ? found->pw_dir : "";
}

}  // namespace

std::string DocumentsInUserDirs(std::string_view text, const std::string& home) {
    std::string folder;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (const auto value = ValueInLine(text.substr(0, end))) {
            if (std::string named = Expanded(*value, home); !named.empty()) folder = named;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return folder;
}

std::string DocumentsFolder(const std::string& home, const std::string& configuration) {
    if (!configuration.empty()) {
        const ReadResult file = DiskFiles().Read(configuration + "/user-dirs.dirs");
        std::string named = DocumentsInUserDirs(file.bytes, home);
        if (!named.empty() && Provide(named)) return named;
    }
    // A home that is missing is nobody's home: services run with such.
    std::error_code failure;
    if (home.empty() || !std::filesystem::is_directory(home, failure)) return "";
    const std::string documents = home == "/" ? "/Documents" : home + "/Documents";
    return Provide(documents) ? documents : home;
}

std::string HomeFolder() {
    const std::string home = Environment("HOME");
    return home.empty() ? HomeInPasswordEntry() : home;
}

std::string DocumentsFolder() {
    const std::string home = HomeFolder();
    std::string configuration = Environment("XDG_CONFIG_HOME");
    if (configuration.empty() && !home.empty()) configuration = home + "/.config";
    return DocumentsFolder(home, configuration);
}

std::string StateFolder() {
    std::string states = Environment("XDG_STATE_HOME");
    if (states.empty()) {
        const std::string home = HomeFolder();
        std::error_code failure;
        // As for Documents: nothing is made in a home that is missing.
        if (home.empty() || !std::filesystem::is_directory(home, failure)) return "";
        states = home + "/.local/state";
    }
    const std::string folder = states + "/tamlo";
    return Provide(folder) ? folder : "";
}

}  // namespace tamlo
