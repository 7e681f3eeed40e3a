// What the system around the game is like, for the report of the speech and sound check.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tamlo {

/// Names and values, each fit for a line: the version of the game, the system, the desktop, the
/// language.
std::vector<std::pair<std::string, std::string>> SystemFacts();

/// A screen reader that is running, and what a player does about it.
struct ScreenReader {
    std::string name;
    std::string advice;          ///< whole sentences
    bool asks_for_care = false;  ///< whether the player should follow the advice
};

/// Those that run now, told from the processes and modules in `proc`, which is "/proc".
/// `braille`: whether the game can show its lines on a display of BRLTTY's.
std::vector<ScreenReader> ScreenReaders(const std::string& proc, bool braille);

}  // namespace tamlo
