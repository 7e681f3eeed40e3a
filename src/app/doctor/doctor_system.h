// Facts about the system, for the report of the speech and sound check.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tamlo {

/// Names and values of one line each: the version of the game, the system, the desktop, the
/// language.
std::vector<std::pair<std::string, std::string>> SystemFacts();

/// A running screen reader, and what a player should do about it.
struct ScreenReader {
    std::string name;
    std::string version;         ///< empty if it is unknown
    std::string advice;          ///< whole sentences
    bool asks_for_care = false;  ///< whether the player should follow the advice
};

/// The running ones, found by the processes and modules in `proc`, which is "/proc".
/// `packages`: the list of what is installed, "/var/lib/dpkg/status", which tells their versions.
/// `braille`: whether the game can show its lines on a display through BRLTTY.
std::vector<ScreenReader> ScreenReaders(const std::string& proc, const std::string& packages,
                                        bool braille);

}  // namespace tamlo
