// soundsmith: makes the wave files of the game.
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "customers/speak.h"
#include "finish.h"
#include "report/report.h"
#include "wave_writer.h"
#include "workshop.h"

namespace {

using namespace tamlo;
using namespace tamlo::soundsmith;

constexpr std::string_view usage =
    "usage: soundsmith [--from SET] FOLDER [EFFECT...]\n"
    "Makes the wave files of the game in FOLDER: those missing or changed, or the EFFECTs named.\n"
    "  --from SET  copy from the folder SET what already stands there, made the same way\n"
    "       soundsmith --report FOLDER [SET]\n"
    "Writes a page about the wave files in SET, or those of the game beside this program.\n"
    "       soundsmith --say FOLDER EFFECT TEXT...\n"
    "Has the customer of EFFECT say each TEXT at the door: FOLDER/EFFECT-1.wav and so on.\n";

// On a terminal one line that is written over; elsewhere nothing, so that a log stays short.
void ShowProgress(std::string_view name, int done, int of) {
    if (!isatty(STDOUT_FILENO)) return;
    std::cout << "\rsoundsmith: " << done << " of " << of << ", " << name << "        "
              << (done == of ? "\n" : "") << std::flush;
}

int Report(const SetResult& result, std::string_view folder) {
    for (const std::string& failure : result.failures)
        std::cerr << "soundsmith: " << failure << "\n";
    if (result.made + result.taken > 0)
        std::cout << "soundsmith: " << result.made << " wave files made, " << result.taken
                  << " taken over, in " << folder << "\n";
    return result.failures.empty() ? 0 : 1;
}

// The game's folder stands beside that of the tools.
std::filesystem::path SetBesideProgram() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "game";
}

int RunReport(const std::vector<std::string>& arguments) {
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::cerr << usage;
        return 2;
    }
    const std::filesystem::path set =
        arguments.size() == 3 ? std::filesystem::path(arguments[2]) : SetBesideProgram();
    const int faulty = WriteReport(set, arguments[1]);
    std::cout << "soundsmith: " << faulty << " sounds outside their limits, see " << arguments[1]
              << "/report.html\n";
    return 0;
}

int Say(const std::vector<std::string>& arguments) {
    const Customer* customer = arguments.size() < 4 ? nullptr : FindCustomer(arguments[2]);
    if (customer == nullptr) {
        std::cerr << usage;
        return 2;
    }
    Effect format = *FindEffect(customer->effect);
    format.text = {};  // as long as the words take
    for (std::size_t i = 3; i < arguments.size(); ++i) {
        const std::string name = arguments[2] + "-" + std::to_string(i - 2) + ".wav";
        std::ofstream out(std::filesystem::path(arguments[1]) / name, std::ios::binary);
        out << WaveFile(format,
                        Finished(format, AtTheDoor(*customer, WorkingRate(format), arguments[i])));
        if (!out.flush()) throw std::runtime_error("cannot write " + name);
    }
    return 0;
}

int Run(std::vector<std::string> arguments) {
    if (!arguments.empty() && arguments[0] == "--report") return RunReport(arguments);
    if (!arguments.empty() && arguments[0] == "--say") return Say(arguments);
    std::string other;
    if (arguments.size() >= 2 && arguments[0] == "--from") {
        other = arguments[1];
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.empty() || arguments[0].starts_with("-")) {
        std::cerr << usage;
        return 2;
    }
    Workshop workshop(arguments[0], other);
    if (arguments.size() == 1) return Report(workshop.MakeSet(ShowProgress), arguments[0]);
    std::vector<const Effect*> effects;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        effects.push_back(FindEffect(arguments[i]));
        if (effects.back() != nullptr) continue;
        std::cerr << "soundsmith: there is no effect " << arguments[i] << "\n";
        return 2;
    }
    return Report(workshop.Make(effects, ShowProgress), arguments[0]);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << "soundsmith: " << error.what() << "\n";
        return 1;
    }
}
