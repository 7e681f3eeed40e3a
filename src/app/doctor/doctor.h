// The speech and sound check: whether the game can be heard and played on this machine, and if not,
// why. Spoken, and written to a report for support.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/doctor/doctor_system.h"

namespace tamlo {

class Form1;

/// The state of the sound output.
struct SoundState {
    std::string driver;       ///< empty without a card
    int frames = 0;           ///< of one block
    int late = 0;             ///< late blocks since the start
    bool audible = false;     ///< whether a card plays the stream, not only a clock
    std::int64_t played = 0;  ///< frames since the start
};

/// What is wrong with a family of voices.
struct VoiceFault {
    std::string family;    ///< name of its library
    bool missing = false;  ///< nothing was found; else it breaks down
    std::string package;   ///< to be installed, again if it breaks down
};

/// What the check uses besides the game's own services.
struct Surroundings {
    std::string front;    ///< what the game runs in, such as "a window"
    bool answers = true;  ///< whether somebody can press keys
    std::function<SoundState()> sound;
    std::vector<std::string> voices;  ///< names by number
    /// Those found so far.
    std::function<std::vector<VoiceFault>()> voice_faults = [] {
        return std::vector<VoiceFault>();
    };
    /// Whether a folder can't be written because its disk is full.
    std::function<bool(const std::string& folder)> disk_is_full = [](auto&) { return false; };
    std::vector<std::pair<std::string, std::string>> facts;
    std::vector<ScreenReader> readers;
    std::string reports;  ///< folder for the report, or empty
    std::string home;     ///< the player's, or empty
};

/// The report of a check, as far as it has come.
struct WrittenReport {
    std::string text;
    std::string path;  ///< empty if it is not written
};

/// Runs the check; leaves only by EndOfProcess, with exit status 1 if something has to be mended.
[[noreturn]] void CheckSpeechAndSound(Form1& form, const Surroundings& surroundings,
                                      WrittenReport& report);

}  // namespace tamlo
