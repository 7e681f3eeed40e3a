// tamlo-city: checks, makes, speaks and maps city streets files.
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

#include "app/city/city_braille.h"
#include "app/city/city_svg.h"
#include "app/city/hear_city.h"
#include "app/sounds_folder.h"
#include "audio/voice/pronunciation.h"
#include "city/city_check.h"
#include "city/street_names.h"
#include "city/streets_file.h"
#include "linux/programs/machine.h"
#include "linux/system/user_dirs.h"
#include "linux/system/watched_run.h"
#include "services/disk_files.h"
#include "services/stray_signals.h"
#include "store/data_folder.h"
#include "text/printable.h"

namespace tamlo {
namespace {

constexpr int city_is_wrong = 1;
constexpr int wrong_use = 2;
constexpr std::size_t longest_list = 1 << 20;  // bytes; 147 names are some thousands

constexpr const char* usage =
    "usage: tamlo-city check FILE|NAME   tells what is wrong with a city\n"
    "       tamlo-city new NAME < LIST   makes a city from a list of names\n"
    "       tamlo-city say FILE|NAME     speaks its names as the game does\n"
    "       tamlo-city map FILE|NAME     prints its map in braille, as BRF\n"
    "       tamlo-city map --svg FILE|NAME   prints its map as a drawing\n";

/// What can't be done, for the line on standard error.
struct Refused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string DefaultCity() {
    std::string text;
    for (const std::string_view road : default_roads) text += std::string(road) + "\r\n";
    for (int street = 1; street <= most_streets; ++street) text += DefaultStreet(street) + "\r\n";
    return text;
}

/// The content of a city's file. A name with a '/' or ".txt" is that of a file.
std::string ReadCity(const std::string& name) {
    DiskFiles files;
    const bool is_file = name.find('/') != name.npos || name.ends_with(streets_ending);
    const std::string path =
        is_file ? name
                : FindDataFolder(files, DocumentsFolder()).path + "/" + StreetsFileName(name);
    const ReadResult content = files.Read(path);
    if (content.outcome == ReadResult::Outcome::ok) return content.bytes;
    if (content.outcome == ReadResult::Outcome::failed) throw Refused(path + " can't be read");
    if (name == "original") return DefaultCity();
    throw Refused(is_file ? "there is no file " + name
                          : "there is no city " + name +
                                " among your files. A file is named with "
                                "its folder, as in ./" +
                                name);
}

/// The 147 names of a city that is long enough.
std::vector<std::string> NamesOf(const std::string& name) {
    std::vector<std::string> names = ReadStreetNames(ReadCity(name));
    if (names.size() < names_in_a_city) {
        throw Refused(name + " has " + std::to_string(names.size()) +
                      " names, and needs 147. tamlo-city check tells more");
    }
    return names;
}

/// In a terminal broken at words; whatever is in a file or its name, no command to the terminal.
void Print(const std::string& line) {
    winsize screen = {};
    ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &screen);
    const std::string printable = PrintableLine(line);
    for (const std::string_view row : BrokenAtWords(printable, screen.ws_col)) {
        std::cout << row << "\n";
    }
}

std::string ReadList() {
    std::string list(longest_list + 1, '\0');
    std::cin.read(list.data(), static_cast<std::streamsize>(list.size()));
    list.resize(static_cast<std::size_t>(std::cin.gcount()));
    if (list.size() > longest_list) throw Refused("the list is too long for the names of a city");
    return list;
}

/// Whether the voice can tell how the names of a city sound. It is tried in a process of its own:
/// with damaged data the speech library may crash or hang.
bool VoiceTells(const std::string& city) {
    constexpr std::chrono::seconds longest{20};
    const RunEnd end = RunWatched(
        [&] {
            if (!CanPronounce()) return 1;
            CheckCity(city, Pronunciation);
            return 0;
        },
        longest);
    return end.status == 0 && end.signal == 0;
}

int Check(const std::string& name) {
    const std::string city = ReadCity(name);
    Pronounce pronounce;
    if (VoiceTells(city)) pronounce = Pronunciation;
    const std::vector<CityFinding> findings = CheckCity(city, pronounce);
    int errors = 0;
    for (const CityFinding& finding : findings) {
        const bool error = finding.weight == CityFinding::Weight::error;
        errors += error;
        Print((error ? "Error. " : "Hint. ") + finding.text);
    }
    if (!pronounce)
        Print(
            "No voice is installed, or it does not work, so the sound of names was not compared.");
    const std::size_t hints = findings.size() - static_cast<std::size_t>(errors);
    if (errors > 0) {
        Print(name + " has to be mended. Errors: " + std::to_string(errors) +
              ". Hints: " + std::to_string(hints) + ".");
        return city_is_wrong;
    }
    Print(name + " can be played. Hints: " + std::to_string(hints) + ".");
    return 0;
}

int Make(const std::string& name) {
    const std::string why_not(name == "original" ? "That is the game's own. "
                                                 : WhyNotCityName(name));
    if (!why_not.empty()) {
        throw Refused("\"" + PrintableLine(name) + "\" can't be the name of a city. " + why_not);
    }
    if (::isatty(STDIN_FILENO) != 0) {
        std::cerr << "Type the 147 names, one a line. Control and D ends the list.\n";
    }
    const std::string list = ReadList();
    std::vector<std::string> names;
    for (const StreetField& field : ReadStreetFields(list)) names.push_back(field.name);
    while (names.size() > names_in_a_city && names.back().empty()) names.pop_back();
    if (names.size() != names_in_a_city) {
        throw Refused("the list has " + std::to_string(names.size()) +
                      " names, and needs 147: 45 roads from north to south, then 102 streets from "
                      "west to east. tamlo-city check, and the file of the list, tell more");
    }
    const auto text = WriteStreetNames(names);
    if (!text) throw Refused("the list has a name with a double quote or a line end in it");

    DiskFiles files;
    const DataFolder folder = FindDataFolder(files, DocumentsFolder());
    if (!folder.exists) files.MakeFolder(folder.path);
    const std::string path = folder.path + "/" + StreetsFileName(name);
    if (!files.FindFile(path).empty()) throw Refused(path + " is there already");
    if (!files.Replace(path, *text)) throw Refused(path + " can't be written");
    Print(path + " has been made.");
    return 0;
}

int Say(const std::string& name) {
    const std::vector<std::string> names = NamesOf(name);
    std::cout.flush();
    return RunOnThisMachine(SoundsFolder(), [&](Form1& form) { HearCity(form, name, names); });
}

int Map(const std::string& name) {
    const std::vector<std::string> names = NamesOf(name);
    const auto translator = MakeTranslator(Grade::uncontracted);
    if (!translator)
        throw Refused(
            "liblouis or its tables are not installed, or were not when "
            "this program was built");
    std::cout << CityInBraille(name, names, *translator);
    return 0;
}

int Draw(const std::string& name) {
    std::cout << CityAsSvg(name == "original" ? "The city" : "The city of " + name, NamesOf(name));
    return 0;
}

struct Command {
    std::string_view name;
    int (*run)(const std::string& city);
};
constexpr std::array<Command, 4> commands = {
    {{"check", Check}, {"new", Make}, {"say", Say}, {"map", Map}}};

int Run(int argc, char** argv) {
    if (argc == 2 && std::string(argv[1]) == "--help") {
        std::cout << usage;
        return 0;
    }
    for (const Command& command : commands) {
        if (argc == 3 && argv[1] == command.name) return command.run(argv[2]);
    }
    if (argc == 4 && std::string(argv[1]) == "map" && std::string(argv[2]) == "--svg") {
        return Draw(argv[3]);
    }
    std::cerr << usage;
    return wrong_use;
}

}  // namespace
}  // namespace tamlo

int main(int argc, char** argv) {
    tamlo::IgnoreStraySignals();
    try {
        const int status = tamlo::Run(argc, argv);
        if (std::cout.flush()) return status;
        std::cerr << "tamlo-city: the output can't be written\n";
    } catch (const std::exception& wrong) {
        std::cerr << "tamlo-city: " << tamlo::PrintableLine(wrong.what()) << "\n";
    }
    return tamlo::wrong_use;
}
