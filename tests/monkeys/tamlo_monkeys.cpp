// tamlo-monkeys: plays the game with so many keys, no run like another, and looks for what must
// never happen. See Usage for its arguments.
#include <charconv>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "linux/system/programs.h"
#include "monkeys/life.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

constexpr const char* usage =
    "usage: tamlo-monkeys [--keys N] [--seed S] [--lives N] [--made-up-fault N] [--keep DIR]\n"
    "  --keys N           keys to press in all (100000)\n"
    "  --seed S           seed of the first life; the next ones count up from it (1)\n"
    "  --lives N          ends after so many lives; reports nothing as too rare\n"
    "  --made-up-fault N  a fault after N keys, to see what happens then\n"
    "  --keep DIR         where a faulty run is kept (monkeys-fault)\n"
    "ends with 0, with 1 for a fault, with 2 for something reached too rarely\n";

struct Arguments {
    std::int64_t keys = 100'000;
    std::int64_t seed = 1;
    std::int64_t lives = 0;
    std::int64_t made_up_fault = -1;
    std::string keep = "monkeys-fault";
};

bool ReadNumber(const char* text, std::int64_t& number) {
    const char* const end = text + std::strlen(text);
    const auto read = std::from_chars(text, end, number);
    return read.ec == std::errc() && read.ptr == end;
}

bool ReadArguments(int count, char** words, Arguments& arguments) {
    for (int i = 1; i < count; i += 2) {
        const std::string name = words[i];
        if (i + 1 == count) return false;
        std::int64_t* const number = name == "--keys"            ? &arguments.keys
                                     : name == "--seed"          ? &arguments.seed
                                     : name == "--lives"         ? &arguments.lives
                                     : name == "--made-up-fault" ? &arguments.made_up_fault
                                                                 : nullptr;
        if (name == "--keep") {
            arguments.keep = words[i + 1];
        } else if (number == nullptr || !ReadNumber(words[i + 1], *number)) {
            return false;
        }
    }
    return true;
}

/// Keeps all that repeats a faulty run, and tells how.
void Keep(const Fault& fault, const std::string& folder, std::uint64_t seed) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    fs::copy(fault.documents, folder + "/documents", fs::copy_options::recursive);
    std::ofstream(folder + "/script.txt") << fault.script;
    std::ofstream(folder + "/trace.txt") << fault.trace;
    std::cerr << "Seed " << seed << ": it does not hold that " << fault.what
              << ".\nTo repeat the run:\n    tamlo-rehearse --documents " << folder << "/documents "
              << folder << "/script.txt\n";
}

struct Totals {
    std::int64_t keys = 0, wild = 0, hasty = 0, lives = 0;
};

/// Whether so many of the keys were of a kind, a little less allowed.
bool Enough(const char* kind, std::int64_t count, std::int64_t keys, double share) {
    const double found = static_cast<double>(count) / static_cast<double>(keys);
    std::cout << kind << " keys: " << static_cast<int>(found * 100 + 0.5) << " in 100\n";
    return found >= share * 0.9;
}

int PlayAll(const Arguments& arguments) {
    constexpr std::int64_t keys_of_a_life = 1500;
    const auto begin = std::chrono::steady_clock::now();
    Reached reached;
    Totals totals;
    while (totals.keys < arguments.keys) {
        if (arguments.lives > 0 && totals.lives == arguments.lives) break;
        LifePlan plan{.seed = static_cast<std::uint64_t>(arguments.seed + totals.lives),
                      .keys = keys_of_a_life,
                      .fault_at = arguments.made_up_fault,
                      .sounds = fs::canonical(ProgramFolder() + "/../game").string()};
        Life life(plan, reached);
        ++totals.lives;
        if (const auto fault = life.Live()) {
            Keep(*fault, arguments.keep, plan.seed);
            return 1;
        }
        totals.keys += life.Player().Keys();
        totals.wild += life.Player().WildKeys();
        totals.hasty += life.Player().HastyKeys();
    }
    const bool all = reached.Report(std::cout);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    std::cout << totals.keys << " keys in " << totals.lives << " lives, " << time.count()
              << " seconds\n";
    const bool wild = Enough("wild", totals.wild, totals.keys, 1 / 5.0);
    const bool hasty = Enough("hasty", totals.hasty, totals.keys, 1 / 3.0);
    return (all && wild && hasty) || arguments.lives > 0 ? 0 : 2;
}

}  // namespace
}  // namespace tamlo

int main(int count, char** words) {
    tamlo::Arguments arguments;
    if (!tamlo::ReadArguments(count, words, arguments)) {
        std::cerr << tamlo::usage;
        return 2;
    }
    try {
        return tamlo::PlayAll(arguments);
    } catch (const std::exception& wrong) {
        std::cerr << "tamlo-monkeys: " << wrong.what() << "\n";
        return 1;
    }
}
