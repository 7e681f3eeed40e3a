#include "rehearsal/script.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <limits>
#include <utility>

#include "rehearsal/words.h"
#include "services/key_codes.h"
#include "text/number_text.h"
#include "text/printable.h"

namespace tamlo {

namespace {

using Words = std::vector<std::string>;

constexpr Ticks most_seconds = 1'000'000'000;

struct NamedKey {
    std::string_view name;
    int code;
};

constexpr auto named_keys = std::to_array<NamedKey>({
    {"backspace", keys::backspace},
    {"enter", keys::enter},
    {"shift", keys::shift},
    {"escape", keys::escape},
    {"space", keys::space},
    {"left", keys::left},
    {"up", keys::up},
    {"right", keys::right},
    {"down", keys::down},
    {"f1", keys::f1},
    {"f2", keys::f2},
    {"f3", keys::f3},
    {"f4", keys::f4},
    {"f5", keys::f5},
    {"f6", keys::f6},
});

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool AllDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

/// A whole number written in digits only; nothing if it is something else, or too large.
std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    if (!AllDigits(text)) return {};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return number;
}

std::optional<double> Probability(std::string_view text) {
    const std::optional<double> number = ReadNumber(text);
    return number && *number >= 0 && *number < 1 ? number : std::nullopt;
}

/// The three numbers of a text that has digits for the picture's letters, and its other characters:
/// for "YYYY-MM-DD" the year, month and day.
std::optional<std::array<int, 3>> ThreeNumbers(std::string_view text, std::string_view picture) {
    if (text.size() != picture.size()) return {};
    std::array<int, 3> numbers{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool separator = picture[i] == '-' || picture[i] == ':';
        if (separator ? text[i] != picture[i] : !IsDigit(text[i])) return {};
        if (separator) {
            ++at;
        } else {
            numbers[at] = numbers[at] * 10 + (text[i] - '0');
        }
    }
    return numbers;
}

std::optional<Date> ReadDate(std::string_view text) {
    const auto numbers = ThreeNumbers(text, "YYYY-MM-DD");
    if (!numbers) return {};
    const auto [year, month, day] = *numbers;
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    if (!date.ok()) return {};
    return Date{year, month, day};
}

std::optional<TimeOfDay> ReadTimeOfDay(std::string_view text) {
    const auto numbers = ThreeNumbers(text, "HH:MM:SS");
    if (!numbers) return {};
    const auto [hour, minute, second] = *numbers;
    if (hour > 23 || minute > 59 || second > 59) return {};
    return TimeOfDay{hour, minute, second};
}

/// Reads lines one by one into a script. Each function that reads a step returns what is wrong, or
/// an empty text.
class ScriptReader {
  public:
    explicit ScriptReader(const FieldChecks& checks) : checks_(checks) {}

    std::string ReadLine(std::string_view text) {
        ++line_;
        const std::size_t begin = text.find_first_not_of(" \t");
        if (begin == std::string_view::npos || text[begin] == '#') return "";
        auto [words, error] = SplitWords(text.substr(begin));
        if (!error.empty()) return error;
        const std::string name = std::move(words.front());
        words.erase(words.begin());
        return ReadStep(name, words);
    }

    int line() const { return line_; }
    Script script;

  private:
    std::string ReadStep(std::string_view name, Words& words) {
        if (name == "clock") return ReadClock(words);
        if (name == "voices") return ReadVoices(words);
        if (name == "press") return ReadPress(words);
        if (name == "upon") return ReadUpon(words);
        if (name == "after") return ReadAfter(words);
        if (name == "draw") return ReadDraw(words);
        if (name == "set") return ReadSet(words);
        if (name == "show") return ReadShow(words);
        return "there is no step " + Quoted(name);
    }

    std::string ReadClock(const Words& words) {
        if (!script.steps.empty()) return "clock must come before every other step";
        if (std::exchange(clock_given_, true)) return "clock is given twice";
        if (words.size() != 2) return "clock takes a date and a time: YYYY-MM-DD HH:MM:SS";
        const auto date = ReadDate(words[0]);
        if (!date) return Quoted(words[0]) + " is not a date YYYY-MM-DD that exists";
        const auto time = ReadTimeOfDay(words[1]);
        if (!time) return Quoted(words[1]) + " is not a time of day HH:MM:SS";
        script.date = *date;
        script.time = *time;
        return "";
    }

    std::string ReadVoices(const Words& words) {
        if (!script.steps.empty()) return "voices must come before every other step";
        if (std::exchange(voices_given_, true)) return "voices is given twice";
        if (words.size() != 1) return "voices takes one number";
        const auto number = WholeNumber(words[0]);
        if (!number) return Quoted(words[0]) + " is not a number of voices";
        script.voices = *number;
        return "";
    }

    std::string ReadPress(const Words& words) {
        if (words.empty()) return "press takes one key or more";
        for (const std::string& word : words) {
            if (std::string error = AddKeyStep(Step::Kind::press, word); !error.empty()) {
                return error;
            }
        }
        return "";
    }

    std::string ReadUpon(Words& words) {
        const bool sound = words.size() == 3 && words[0] == "sound";
        if (sound) words.erase(words.begin());
        if (words.size() != 2) return "upon takes a text and a key, or sound, a name and a key";
        const auto kind = sound ? Step::Kind::upon_sound : Step::Kind::upon_speech;
        if (std::string error = AddKeyStep(kind, words[1]); !error.empty()) return error;
        script.steps.back().words = {std::move(words[0])};
        return "";
    }

    std::string ReadAfter(const Words& words) {
        if (words.size() != 2) return "after takes seconds and a key";
        const auto delay = ReadSeconds(words[0]);
        if (!delay) {
            return Quoted(words[0]) + " is not a number of seconds from 0 to 1000000000";
        }
        if (std::string error = AddKeyStep(Step::Kind::after, words[1]); !error.empty()) {
            return error;
        }
        script.steps.back().delay = *delay;
        return "";
    }

    std::string ReadDraw(const Words& words) {
        if (words.empty()) return "draw takes one number or more";
        std::vector<double> numbers;
        for (const std::string& word : words) {
            const auto number = Probability(word);
            if (!number) return Quoted(word) + " is not a number from 0 to below 1";
            numbers.push_back(*number);
        }
        AddStep(Step::Kind::draw).numbers = std::move(numbers);
        return "";
    }

    std::string ReadSet(Words& words) {
        if (words.empty() || words.size() % 2 != 0) return "set takes fields, each with a value";
        for (std::size_t i = 0; i < words.size(); i += 2) {
            std::string error = checks_.why_not_set(words[i], words[i + 1]);
            if (!error.empty()) return error;
            AddStep(Step::Kind::set).words = {words[i], words[i + 1]};
        }
        return "";
    }

    std::string ReadShow(Words& words) {
        if (words.empty()) return "show takes one field or more";
        for (const std::string& word : words) {
            if (std::string error = checks_.why_not_show(word); !error.empty()) return error;
        }
        AddStep(Step::Kind::show).words = std::move(words);
        return "";
    }

    Step& AddStep(Step::Kind kind) {
        Step& step = script.steps.emplace_back();
        step.kind = kind;
        step.line = line_;
        return step;
    }

    std::string AddKeyStep(Step::Kind kind, std::string_view key) {
        const auto code = KeyCode(key);
        if (!code) return "there is no key " + Quoted(key);
        AddStep(kind).key = *code;
        return "";
    }

    const FieldChecks& checks_;
    int line_ = 0;
    bool clock_given_ = false;
    bool voices_given_ = false;
};

}  // namespace

std::optional<int> KeyCode(std::string_view key) {
    if (key.size() == 1) {
        const char c = key.front();
        if (IsDigit(c)) return c;
        if (c >= 'a' && c <= 'z') return c - 'a' + 'A';
        return {};
    }
    const auto named = std::find_if(named_keys.begin(), named_keys.end(),
                                    [&](const NamedKey& known) { return known.name == key; });
    if (named != named_keys.end()) return named->code;
    const auto code = WholeNumber(key);
    if (!code || key.size() > 3 || key.front() == '0' || *code > 255) return {};
    return code;
}

std::optional<Ticks> ReadSeconds(std::string_view text) {
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view part =
        point == std::string_view::npos ? std::string_view{"0"} : text.substr(point + 1);
    const auto seconds = WholeNumber(whole);
    if (!seconds || *seconds > most_seconds || !AllDigits(part)) return {};
    Ticks ticks = *seconds * ticks_per_second + (part[0] - '0') * 10;
    if (part.size() > 1) ticks += part[1] - '0';
    if (part.size() > 2 && part.find_first_not_of('0', 2) != std::string_view::npos) ++ticks;
    if (ticks > most_seconds * ticks_per_second) return {};
    return ticks;
}

std::variant<Script, ScriptError> ReadScript(std::string_view text, const FieldChecks& checks) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
    ScriptReader reader(checks);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (std::string error = reader.ReadLine(line); !error.empty()) {
            return ScriptError{reader.line(), std::move(error)};
        }
    }
    return std::move(reader.script);
}

}  // namespace tamlo
