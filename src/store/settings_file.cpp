#include "store/settings_file.h"

#include <algorithm>
#include <charconv>

#include "game/volumes.h"
#include "text/text_encoding.h"

namespace tamlo {
namespace {

constexpr int widest_rate = 1'000'000'000;  // leaves room for the echo, which is five above it

std::string Line(int number) {
    return (number < 0 ? "" : " ") + std::to_string(number) + "\r\n";
}

/// Takes the next line off the text, including its end (CR LF, CR or LF).
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
    return line;
}

void TakeNumber(std::string_view& text, int& number) {
    std::string_view line = TakeLine(text);
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    while (line.ends_with(' ') || line.ends_with('\t')) line.remove_suffix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), value);
    if (error == std::errc() && end == line.data() + line.size()) number = value;
}

}  // namespace

std::string FormatSettings(const Settings& settings) {
    return Line(settings.nv) + Line(settings.vr) + Line(settings.vv) + Line(settings.wavol) +
           Line(settings.gnd);
}

Settings ParseSettings(std::string_view bytes, int voices) {
    const std::string decoded = DecodeText(bytes);
    std::string_view text = decoded;
    Settings settings;
    for (int* number : {&settings.nv, &settings.vr, &settings.vv, &settings.wavol, &settings.gnd}) {
        TakeNumber(text, *number);
    }
    if (settings.nv < 0 || settings.nv >= voices) settings.nv = 0;
    settings.vr = std::clamp(settings.vr, -widest_rate, widest_rate);
    settings.vv = std::clamp(settings.vv, 0, 100);
    settings.wavol = std::clamp(settings.wavol, quietest_sound, 0);
    if (settings.gnd != 2) settings.gnd = 1;
    return settings;
}

}  // namespace tamlo
