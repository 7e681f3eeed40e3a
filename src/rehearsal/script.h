// A rehearsal's script: its steps, and reading it from text.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "rehearsal/virtual_time.h"
#include "services/clock.h"

namespace tamlo {

/// Each key of a `press` is a step, so that each waits for rest.
struct Step {
    enum class Kind { press, upon_speech, upon_sound, after, draw, set, show };
    Kind kind = Kind::press;
    int line = 0;                         ///< in the script, from 1
    int key = 0;                          ///< press, upon, after: virtual-key code
    Ticks delay = 0;                      ///< after
    std::vector<std::string> words = {};  ///< upon: text or name; set: field, value; show: fields
    std::vector<double> numbers = {};     ///< draw: each 0 <= x < 1
};

struct Script {
    Date date{2015, 3, 5};
    TimeOfDay time{12, 0, 0};
    int voices = 3;
    std::vector<Step> steps;
};

struct ScriptError {
    int line = 0;
    std::string what;
};

/// Checks of fields before the game runs: what is wrong, or an empty text.
struct FieldChecks {
    std::function<std::string(std::string_view field, std::string_view value)> why_not_set;
    std::function<std::string(std::string_view field)> why_not_show;
};

/// Reads a whole script; the first error ends the reading.
std::variant<Script, ScriptError> ReadScript(std::string_view text, const FieldChecks& checks);

/// The virtual-key code of a KEY: a name, a letter, a digit, or a code of 2 or 3 decimal digits
/// from 10 to 255. Nothing if it is none of them.
std::optional<int> KeyCode(std::string_view key);

/// Reads decimal seconds, 0 to 1,000,000,000, as ticks, rounded up.
std::optional<Ticks> ReadSeconds(std::string_view text);

}  // namespace tamlo
