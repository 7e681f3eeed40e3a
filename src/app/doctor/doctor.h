// The speech and sound check: whether the game can be heard and played on this machine, and if
// not, why. Spoken, and written down for those who help.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/doctor/doctor_system.h"

namespace tamlo {

class Form1;

/// The sound output at a moment.
struct SoundState {
    std::string driver;       ///< empty without a card
    int frames = 0;           ///< of one block
    int late = 0;             ///< late blocks since the start
    bool audible = false;     ///< whether a card takes the stream, or only a clock
    std::int64_t played = 0;  ///< frames since the start
};

/// What the check asks, beside the game's own services.
struct Surroundings {
    std::string front;    ///< what the game plays in, such as "a window"
    bool answers = true;  ///< whether there is somebody to press keys
    std::function<SoundState()> sound;
    std::vector<std::string> voices;  ///< what they are called, by their number
    std::vector<std::pair<std::string, std::string>> facts;
    std::vector<ScreenReader> readers;
    std::string reports;     ///< folder for the report, or empty
    std::string home;        ///< the player's, or empty
    std::string text = {};   ///< out: the report, as far as it has come
    std::string saved = {};  ///< out: where it has been written, empty if nowhere
};

/// Runs the check; leaves only by EndOfProcess, with exit status 1 if something has to be mended.
[[noreturn]] void CheckSpeechAndSound(Form1& form, Surroundings& surroundings);

}  // namespace tamlo
