#include "city/city_check.h"

#include <algorithm>
#include <map>

#include "city/streets_file.h"
#include "text/utf8.h"

namespace tamlo {
namespace {

using Weight = CityFinding::Weight;
using Findings = std::vector<CityFinding>;

constexpr std::size_t long_name = 40;  // characters: three seconds of speech at every corner
constexpr char end_of_text = 26;

/// The name as players compare names: without regard to case, several blanks as one.
std::string Folded(const std::string& name) {
    std::string folded;
    for (const char c : name) {
        if (c == ' ' && (folded.empty() || folded.back() == ' ')) continue;
        folded += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    }
    if (folded.ends_with(' ')) folded.pop_back();
    return folded;
}

/// The beginning of a name, short enough for a sentence.
std::string Shown(const std::string& name) {
    std::string shown;
    std::string_view rest = name;
    for (std::size_t i = 0; i < long_name && !rest.empty(); ++i) {
        const std::size_t length = FirstCharacter(rest);
        const bool control = static_cast<unsigned char>(rest.front()) < ' ' || rest.front() == 127;
        shown += control ? " " : std::string(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    return "\"" + shown + (rest.empty() ? "\"" : "...\"");
}

void CheckText(std::string_view bytes, Findings& findings) {
    if (!IsUtf8(bytes)) {
        findings.push_back({Weight::hint,
                            "The text is not UTF-8, so it is read as Windows-1252. Listen whether "
                            "its accents are right, or save it as UTF-8."});
    }
    const std::size_t end = bytes.find(end_of_text);
    if (end != bytes.npos && end + 1 < bytes.size()) {
        findings.push_back({Weight::error, "A byte 26 ends the file before its end."});
    }
}

/// Whether the voices, which speak English, may have no sound for a letter: those beyond Latin
/// ones.
bool IsForeign(char32_t code) {
    constexpr char32_t past_latin = 0x250;
    const bool more_latin = code >= 0x1E00 && code < 0x1F00;
    const bool marks = code >= 0x2000 && code < 0x2C00;  // punctuation, currencies, signs
    return code >= past_latin && !more_latin && !marks;
}

bool HasForeignLetters(std::string_view name) {
    while (!name.empty()) {
        if (IsForeign(DecodeCharacter(name).code)) return true;
        name.remove_prefix(FirstCharacter(name));
    }
    return false;
}

/// One finding for all the names: a city in another alphabet has 147.
void CheckLetters(const std::vector<StreetField>& fields, Findings& findings) {
    int count = 0;
    std::string told;
    for (std::size_t i = 0; i < fields.size() && i < std::size_t{names_in_a_city}; ++i) {
        if (!HasForeignLetters(fields[i].name) || ++count > 1) continue;
        told = "Line " + std::to_string(fields[i].line) + ", " +
               PlaceOfName(static_cast<int>(i) + 1) + ", " + Shown(fields[i].name);
    }
    if (count == 0) return;
    if (count > 1)
        told += ", and " + std::to_string(count - 1) + " more names, have";
    else
        told += ", has";
    findings.push_back({Weight::hint, told + " letters that the voices, which speak English, may "
                                             "not read. Listen to them with tamlo-city say."});
}

void CheckCount(const std::vector<StreetField>& fields, Findings& findings) {
    const int count = static_cast<int>(fields.size());
    if (count < names_in_a_city) {
        findings.push_back(
            {Weight::error, "The file has " + std::to_string(count) + " names, and needs 147: " +
                                std::to_string(names_in_a_city - count) + " are missing."});
    }
    for (int i = names_in_a_city; i < count; ++i) {
        const StreetField& field = fields[static_cast<std::size_t>(i)];
        if (Folded(field.name).empty()) continue;
        findings.push_back({Weight::hint, "Line " + std::to_string(field.line) + ", " +
                                              Shown(field.name) +
                                              ", and what follows stand after the last name and "
                                              "are not read."});
        return;
    }
}

void CheckName(const StreetField& field, int number, bool first_of_line, const Pronounce& pronounce,
               Findings& findings) {
    const std::string line = "Line " + std::to_string(field.line) + ", " + PlaceOfName(number);
    const std::size_t characters = CountCharacters(field.name);
    const auto control = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; };
    if (Folded(field.name).empty()) {
        findings.push_back({Weight::error, line + ", has no name."});
    } else if (field.name.find_first_of("\r\n") != field.name.npos) {
        findings.push_back({Weight::error, line + ", " + Shown(field.name) +
                                               ", goes on over the end of its line: a double quote "
                                               "is not closed."});
    } else if (characters > longest_street_name) {
        findings.push_back({Weight::hint, line + ", " + Shown(field.name) + ", has " +
                                              std::to_string(characters) +
                                              " characters, of which 200 are spoken."});
    } else if (characters > long_name) {
        findings.push_back({Weight::hint, line + ", " + Shown(field.name) + ", has " +
                                              std::to_string(characters) +
                                              " characters, and is heard at every corner."});
    } else if (std::any_of(field.name.begin(), field.name.end(), control)) {
        findings.push_back(
            {Weight::hint, line + ", " + Shown(field.name) + ", holds a control character."});
    } else if (pronounce && pronounce(field.name).empty()) {
        findings.push_back({Weight::error, line + ", " + Shown(field.name) + ", is silent."});
    }
    if (!first_of_line) {
        findings.push_back({Weight::hint, line + ", " + Shown(field.name) +
                                              ", stands after a comma, which ends a name. A name "
                                              "with a comma needs double quotes."});
    }
}

/// Names that are alike or sound alike: each is reported together with the first such name.
void CheckAlike(const std::vector<StreetField>& fields, const Pronounce& pronounce,
                Findings& findings) {
    std::map<std::string, std::size_t> by_text;
    std::map<std::string, std::size_t> by_sound;
    for (std::size_t i = 0; i < fields.size() && i < std::size_t{names_in_a_city}; ++i) {
        const std::string folded = Folded(fields[i].name);
        if (folded.empty()) continue;
        const std::string place = PlaceOfName(static_cast<int>(i) + 1);
        const auto first_place = [](std::size_t other) {
            return PlaceOfName(static_cast<int>(other) + 1);
        };
        const auto [same, is_new] = by_text.try_emplace(folded, i);
        if (!is_new) {
            findings.push_back({Weight::error, "Line " + std::to_string(fields[i].line) + ": " +
                                                   place + " has the name of " +
                                                   first_place(same->second) + ", " +
                                                   Shown(fields[i].name) + "."});
            continue;
        }
        const std::string sound = pronounce ? pronounce(fields[i].name) : "";
        if (sound.empty()) continue;
        const auto [alike, sounds_new] = by_sound.try_emplace(sound, i);
        if (!sounds_new) {
            findings.push_back({Weight::hint, "Line " + std::to_string(fields[i].line) + ": " +
                                                  place + ", " + Shown(fields[i].name) +
                                                  ", sounds like " + first_place(alike->second) +
                                                  ", " + Shown(fields[alike->second].name) + "."});
        }
    }
}

}  // namespace

std::string PlaceOfName(int name) {
    return name <= most_roads ? "road " + std::to_string(name)
                              : "street " + std::to_string(name - most_roads);
}

std::vector<CityFinding> CheckCity(std::string_view bytes, const Pronounce& pronounce) {
    Findings findings;
    if (bytes.find('\0') != bytes.npos) {  // every further finding would have the same cause
        return {{Weight::error,
                 "The file is not a text that the game can read. If an editor has saved it as "
                 "UTF-16, or Unicode, save it as UTF-8."}};
    }
    const std::vector<StreetField> fields = ReadStreetFields(bytes);
    CheckText(bytes, findings);
    CheckCount(fields, findings);
    int last_line = 0;
    for (std::size_t i = 0; i < fields.size() && i < std::size_t{names_in_a_city}; ++i) {
        CheckName(fields[i], static_cast<int>(i) + 1, fields[i].line != last_line, pronounce,
                  findings);
        last_line = fields[i].line;
    }
    CheckLetters(fields, findings);
    CheckAlike(fields, pronounce, findings);
    std::stable_partition(findings.begin(), findings.end(), [](const CityFinding& finding) {
        return finding.weight == Weight::error;
    });
    return findings;
}

}  // namespace tamlo
