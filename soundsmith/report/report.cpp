// The page, the table of text, and the files that the page shows.
#include "report/report.h"

#include <cmath>
#include <fstream>
#include <iomanip>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "recipes.h"
#include "report/findings.h"
#include "report/pictures.h"

namespace tamlo::soundsmith {

namespace {

namespace fs = std::filesystem;

using Set = std::vector<Findings>;

constexpr std::string_view page_head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>The sounds of Tamlo Delivery</title>
<style>
body { font-family: sans-serif; margin: 1rem 2rem; }
table { border-collapse: collapse; margin-bottom: 2rem; }
caption { text-align: left; padding-bottom: 0.5rem; }
th, td { border: 1px solid #999; padding: 0.3rem 0.5rem; text-align: left; vertical-align: top; }
td.number { text-align: right; font-variant-numeric: tabular-nums; }
td.fault { background: #fdd; color: #600; }
img { display: block; }
</style>
</head>
<body>
<h1>The sounds of Tamlo Delivery</h1>
<p>Loudness is gated, in LUFS, with the level aimed at in brackets. Peaks are in decibels below full
scale. Direct current is in per cent of full scale. The seam of a loop is its sharpest bend as a
multiple of the sharpest within 10 milliseconds around it: up to 1 it cannot be heard. The pitch is
that of the voice, in hertz.</p>
)";

constexpr std::string_view column_heads =
    "<thead><tr><th scope=\"col\">Sound</th><th scope=\"col\">Role</th>"
    "<th scope=\"col\">Listen</th><th scope=\"col\">Seconds</th><th scope=\"col\">Loudness</th>"
    "<th scope=\"col\">Peak</th><th scope=\"col\">Direct current</th><th scope=\"col\">Seam</th>"
    "<th scope=\"col\">Pitch</th><th scope=\"col\">Verdict</th><th scope=\"col\">Waveform</th>"
    "<th scope=\"col\">Spectrogram</th></tr></thead>\n";

void Write(const fs::path& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error("cannot write " + path.string());
}

std::string Fixed(double value, int places) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(places) << value;
    return text.str();
}

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '"')
            result += "&quot;";
        else
            result += c;
    }
    return result;
}

std::string Verdict(const Findings& findings) {
    if (findings.faults.empty()) return "good";
    std::string words;
    for (const std::string& fault : findings.faults) words += (words.empty() ? "" : ", ") + fault;
    return words;
}

// The columns of numbers, the same in both reports; an empty one does not apply.
std::vector<std::string> Numbers(const Findings& findings) {
    if (findings.sound.samples.empty()) return std::vector<std::string>(6);
    const bool has_pitch = findings.voice.pitch > 0.0;
    return {Fixed(findings.sound.Seconds(), 2),
            Fixed(findings.lufs, 1) + " (" + Fixed(findings.effect->lufs, 0) + ")",
            Fixed(findings.peak, 1),
            Fixed(findings.dc, 2),
            findings.effect->loop ? Fixed(findings.seam, 2) : "",
            has_pitch ? Fixed(findings.voice.pitch, 0) : ""};
}

std::string Image(const Findings& findings, std::string_view kind, int height) {
    const std::string name(findings.effect->name);
    return "<td><img src=\"pictures/" + name + "-" + std::string(kind) + ".png\" width=\"" +
           std::to_string(picture_width) + "\" height=\"" + std::to_string(height) + "\" alt=\"" +
           std::string(kind) + " of " + name + ": " + Escaped(findings.InWords()) + "\"></td>";
}

std::string Row(const Findings& findings) {
    const std::string name(findings.effect->name);
    const std::string role = Escaped(findings.Role());
    std::string row = "<tr><th scope=\"row\">" + name + "</th><td>" + role + "</td>";
    if (findings.sound.samples.empty())
        return row + "<td class=\"fault\" colspan=\"10\">" + Escaped(Verdict(findings)) +
               "</td></tr>\n";
    row += "<td><audio controls preload=\"none\" src=\"sounds/" + name + ".wav\" aria-label=\"" +
           name + ", " + role + "\"></audio></td>";
    for (const std::string& number : Numbers(findings))
        row += "<td class=\"number\">" + number + "</td>";
    row += findings.faults.empty() ? "<td>" : "<td class=\"fault\">";
    row += Escaped(Verdict(findings)) + "</td>";
    return row + Image(findings, "waveform", waveform_height) +
           Image(findings, "spectrogram", spectrogram_height) + "</tr>\n";
}

int CountFaulty(const Set& set) {
    int count = 0;
    for (const Findings& findings : set) count += findings.faults.empty() ? 0 : 1;
    return count;
}

std::string Summary(const Set& set) {
    return std::to_string(set.size()) + " sounds, " + std::to_string(CountFaulty(set)) +
           " outside their limits.";
}

std::string Page(const Set& set) {
    std::map<std::string_view, std::string> rows;  // by theme
    for (const Findings& findings : set) rows[ThemeOf(*findings.effect)] += Row(findings);
    std::string page = std::string(page_head) + "<p>" + Summary(set) + "</p>\n";
    for (const auto& [theme, text] : rows) {
        const std::string title(theme);
        page.append("<h2>").append(title).append("</h2>\n<table>\n");
        page.append("<caption>The sounds of the theme ").append(title).append("</caption>\n");
        page.append(column_heads).append("<tbody>\n").append(text).append("</tbody>\n</table>\n");
    }
    return page + "</body>\n</html>\n";
}

std::string Text(const Set& set) {
    std::ostringstream text;
    text << Summary(set) << "\n\n";
    const auto line = [&](std::string_view name, const std::vector<std::string>& numbers,
                          std::string_view verdict, std::string_view role) {
        constexpr int widths[] = {8, 14, 7, 6, 6, 6};
        text << std::left << std::setw(9) << name << std::right;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            text << std::setw(widths[i]) << (numbers[i].empty() ? "-" : numbers[i]);
        text << "  " << verdict << "; " << role << "\n";
    };
    line("sound", {"seconds", "LUFS (aim)", "peak", "DC %", "seam", "pitch"}, "verdict", "role");
    for (const Findings& findings : set)
        line(findings.effect->name, Numbers(findings), Verdict(findings), findings.Role());
    return text.str();
}

}  // namespace

int WriteReport(const fs::path& set_folder, const fs::path& folder) {
    fs::create_directories(folder / "sounds");
    fs::create_directories(folder / "pictures");
    Set set;
    for (const Effect& effect : Effects()) {
        set.push_back(Examine(set_folder, effect));
        const Findings& findings = set.back();
        if (findings.sound.samples.empty()) continue;
        const std::string name(effect.name);
        fs::copy_file(set_folder / (name + ".wav"), folder / "sounds" / (name + ".wav"),
                      fs::copy_options::overwrite_existing);
        const fs::path pictures = folder / "pictures";
        Write(pictures / (name + "-waveform.png"), WaveformPicture(findings.sound));
        Write(pictures / (name + "-spectrogram.png"), SpectrogramPicture(findings.sound));
    }
    Write(folder / "report.html", Page(set));
    Write(folder / "report.txt", Text(set));
    return CountFaulty(set);
}

}  // namespace tamlo::soundsmith
