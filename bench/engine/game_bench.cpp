// What the game's own work costs: checking and reading files, and whole days without their time.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "city/streets_file.h"
#include "rehearsed_game.h"

namespace tamlo {
namespace {

std::string ReadExample(const std::string& name) {
    std::ifstream file(std::string(TAMLO_EXAMPLES) + "/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

void CheckWave(benchmark::State& state) {
    RehearsedGame rehearsed;
    rehearsed.RunProgram("", [&state](Form1& game) {
        for (auto check : state) {
            static_cast<void>(check);
            game.gs.wcv = 0;
            game.checkwave();
            if (game.gs.wcv != 0) state.SkipWithError("the wave files are not those of the game");
        }
    });
}

void ReadingAStreetsFile(benchmark::State& state) {
    std::string file;
    for (int i = 1; i <= names_in_a_city; ++i) {
        file += "\"Street, the " + std::to_string(i) + "th of the city\"\r\n";
    }
    for (auto reading : state) {
        static_cast<void>(reading);
        if (ReadStreetNames(file).size() != names_in_a_city) state.SkipWithError("names are lost");
    }
}

/// From the start of the program to its end, each time with the same documents.
void RehearsedDay(benchmark::State& state, const std::string& example) {
    const std::string script = ReadExample(example);
    for (auto day : state) {
        static_cast<void>(day);
        RehearsedGame game;
        if (game.Run(script).exit_status != 0) state.SkipWithError("the script has not ended well");
    }
}

/// Runs a program quietly; false if it does not end well.
bool Run(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t quietly;
    posix_spawn_file_actions_init(&quietly);
    posix_spawn_file_actions_addopen(&quietly, 1, "/dev/null", 1, 0);
    pid_t child = 0;
    int status = -1;
    if (posix_spawn(&child, arguments[0], &quietly, nullptr, arguments.data(), environ) == 0) {
        waitpid(child, &status, 0);
    }
    posix_spawn_file_actions_destroy(&quietly);
    return status == 0;
}

void StartOfTheRehearsal(benchmark::State& state) {
    for (auto start : state) {
        static_cast<void>(start);
        if (!Run({TAMLO_REHEARSE, "/dev/null"})) state.SkipWithError("it has not run");
    }
}

/// Five runs of the program, from the first order to the record.
void RehearsedCareer(benchmark::State& state) {
    for (auto career : state) {
        static_cast<void>(career);
        if (!Run({std::string(TAMLO_EXAMPLES) + "/a-career.sh", TAMLO_REHEARSE})) {
            state.SkipWithError("the career has not ended well");
        }
    }
}

BENCHMARK(CheckWave)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadingAStreetsFile)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RehearsedDay, a_day, "a-day.txt")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RehearsedDay, first_delivery, "first-delivery.txt")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(RehearsedCareer)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(StartOfTheRehearsal)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tamlo
