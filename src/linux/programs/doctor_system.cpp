#include "app/doctor/doctor_system.h"

#include <sys/utsname.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

namespace tamlo {
namespace {

namespace fs = std::filesystem;

struct KnownReader {
    const char* process;
    const char* name;
    const char* advice;
    bool braille_only;
};

constexpr const char* sleep_or_silence =
    "Let it be silent while you play. Before version 46, press Insert and S before you start the "
    "game: in its window the keys may not reach Orca. From version 46 on, Control, Alt, Shift and "
    "Q "
    "in the window of the game lets it sleep.";
constexpr const char* silence_before =
    "Before you start the game, press Insert and S, which switches Orca's speech off and on: in "
    "the "
    "window of the game the keys may not reach it. To edit a city, switch it on again.";
constexpr const char* sleep =
    "In the window of the game, press Control, Alt, Shift and Q, which lets Orca sleep there.";
constexpr int first_with_sleep = 46;
constexpr const char* silence = "Switch its speech off while you play.";
constexpr const char* welcome = "The game shows its lines on your braille display.";
constexpr const char* library_missing =
    "Install the package libbrlapi0.8, and the game shows its lines on your braille display.";

constexpr std::array<KnownReader, 9> known_readers = {{
    {"orca", "Orca", sleep_or_silence, false},
    {"cthulhu", "Cthulhu", silence, false},
    {"odilia", "Odilia", silence, false},
    {"fenrir", "Fenrir", silence, false},
    {"yasr", "Yasr", silence, false},
    {"tdsr", "TDSR", silence, false},
    {"espeakup", "Speakup", silence, false},
    {"speakup", "Speakup", silence, false},  // the module of the kernel
    {"brltty", "BRLTTY", welcome, true},
}};

std::string FirstLine(const fs::path& file) {
    std::string line;
    std::ifstream in(file);
    std::getline(in, line);
    return line;
}

/// The names of all processes and, by their first word, of the modules of the kernel.
std::set<std::string> Running(const fs::path& proc) {
    std::set<std::string> names;
    std::error_code none;
    fs::directory_iterator at(proc, none);
    for (; !none && at != fs::directory_iterator(); at.increment(none)) {
        const std::string process = at->path().filename();
        if (process.find_first_not_of("0123456789") != process.npos) continue;
        names.insert(FirstLine(at->path() / "comm"));
    }
    std::ifstream modules(proc / "modules");
    for (std::string line; std::getline(modules, line);) {
        names.insert(line.substr(0, line.find(' ')));
    }
    return names;
}

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : "not set";
}

/// What /etc/os-release gives for the system's name.
std::string SystemName() {
    constexpr std::string_view key = "PRETTY_NAME=";
    std::ifstream in("/etc/os-release");
    for (std::string line; std::getline(in, line);) {
        if (!line.starts_with(key)) continue;
        std::string name = line.substr(key.size());
        std::erase(name, '"');
        return name;
    }
    return "unknown";
}

std::string Kernel() {
    utsname system = {};
    if (::uname(&system) != 0) return "unknown";
    return std::string(system.sysname) + " " + system.release + " " + system.machine;
}

/// The version of an installed package, without what its packager added; empty if it is unknown.
std::string VersionOf(const std::string& package, const fs::path& packages) {
    std::ifstream in(packages);
    bool found = false;
    for (std::string line; std::getline(in, line);) {
        if (line.empty()) found = false;
        if (line == "Package: " + package) found = true;
        constexpr std::string_view key = "Version: ";
        if (!found || !line.starts_with(key)) continue;
        const std::size_t epoch = line.find(':', key.size());
        const std::size_t begin = epoch == line.npos ? key.size() : epoch + 1;
        return line.substr(begin, line.find_first_of("-+~", begin) - begin);
    }
    return "";
}

const char* AdviceFor(const KnownReader& reader, const std::string& version) {
    if (std::string_view(reader.process) != "orca" || version.empty()) return reader.advice;
    return std::atoi(version.c_str()) < first_with_sleep ? silence_before : sleep;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> SystemFacts() {
    std::vector<std::pair<std::string, std::string>> facts = {
        {"Version", TAMLO_VERSION}, {"System", SystemName()}, {"Kernel", Kernel()}};
    for (const char* name :
         {"XDG_CURRENT_DESKTOP", "XDG_SESSION_TYPE", "DISPLAY", "WAYLAND_DISPLAY", "TERM", "LANG",
          "LC_ALL", "SDL_AUDIODRIVER", "PULSE_SERVER", "PIPEWIRE_REMOTE"}) {
        facts.emplace_back(name, Variable(name));
    }
    return facts;
}

std::vector<ScreenReader> ScreenReaders(const std::string& proc, const std::string& packages,
                                        bool braille) {
    const std::set<std::string> running = Running(proc);
    std::vector<ScreenReader> readers;
    for (const KnownReader& known : known_readers) {
        const bool told = !readers.empty() && readers.back().name == known.name;
        if (told || !running.contains(known.process)) continue;
        const bool lost = known.braille_only && !braille;
        const std::string version = VersionOf(known.process, packages);
        readers.push_back({known.name, version, lost ? library_missing : AdviceFor(known, version),
                           lost || !known.braille_only});
    }
    return readers;
}

}  // namespace tamlo
