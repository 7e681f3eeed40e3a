// A performance as a score: what is heard, after which pause, and what is logged.
#pragma once

#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

#include "performance.h"
#include "text/utf8.h"

namespace tamlo {

/// The seconds that a line of a trace takes: the length of a blocking utterance, else 0.
inline double Held(const TraceLine& line) {
    if (!line.event.starts_with("say \"")) return 0;
    constexpr std::string_view around = "say \"\"";
    return 0.05 * static_cast<double>(CountCharacters(line.event) - around.size());
}

/// How many lines from `begin` on set the volume or the pan of a sound in equal steps, as a
/// movement does; 1 if there is no movement.
inline std::size_t StepsFrom(const std::vector<TraceLine>& lines, std::size_t begin) {
    const auto blank = [&](std::size_t i) { return lines[i].event.rfind(' ') + 1; };
    const auto value = [&](std::size_t i) { return std::stoi(lines[i].event.substr(blank(i))); };
    const std::string what = lines[begin].event.substr(0, blank(begin));
    const auto goes_on = [&](std::size_t i) {
        if (i >= lines.size() || !lines[i].event.starts_with(what)) return false;
        const double pause = lines[i].seconds - lines[i - 1].seconds;
        const double first_pause = lines[begin + 1].seconds - lines[begin].seconds;
        return std::abs(pause - first_pause) < 0.001 && pause > 0 &&
               value(i) - value(i - 1) == value(begin + 1) - value(begin);
    };
    std::size_t count = 1;
    while (goes_on(begin + count)) ++count;
    return count > 3 ? count : 1;
}

/// What is heard as one event, and how many lines of the trace it takes; "" if nothing is heard.
struct Moment {
    std::string event;
    std::size_t lines = 1;
};

inline Moment MovementAt(const std::vector<TraceLine>& lines, std::size_t at) {
    const std::size_t count = StepsFrom(lines, at);
    if (count == 1) return {};
    const std::string& last = lines[at + count - 1].event;
    char pace[48];
    std::snprintf(pace, sizeof pace, " in %zu steps of %.2f", count - 1,
                  lines[at + 1].seconds - lines[at].seconds);
    return {lines[at].event + " to" + last.substr(last.rfind(' ')) + pace, count};
}

inline Moment MomentAt(const std::vector<TraceLine>& lines, std::size_t at) {
    const std::string& event = lines[at].event;
    if (event.starts_with("load ") || event.starts_with("setfrequency ")) return {};
    if (event.starts_with("setvolume ") || event.starts_with("setpan ")) {
        return MovementAt(lines, at);
    }
    const bool echo = at + 3 < lines.size() && event.starts_with("rate ") &&
                      lines[at + 1].event == "hush" && lines[at + 3].event.starts_with("rate ");
    if (echo) return {"echo" + lines[at + 2].event.substr(4), 4};
    return {event};
}

/// A line for what follows without a pause, with the seconds since the end of what came before.
/// Lines that only prepare a sound are left out: its `play` has its volume, pan and frequency. A
/// movement in equal steps is one event, and so is the echo of a key, which is faster than other
/// speech.
inline std::string Score(const Performance& run) {
    std::string score;
    double end = 0;
    const auto& lines = run.lines;
    std::size_t next = 0;
    for (std::size_t i = 0; i < lines.size(); i = next) {
        const Moment moment = MomentAt(lines, i);
        next = i + moment.lines;
        if (moment.event.empty()) continue;
        char pause[32] = "";
        const double seconds = lines[i].seconds - end;
        if (std::abs(seconds) > 0.001) std::snprintf(pause, sizeof pause, "+%.2f ", seconds);
        score += (score.empty() ? "" : *pause == '\0' ? " | " : "\n") + (pause + moment.event);
        end = lines[next - 1].seconds + Held(lines[next - 1]);
    }
    return score + "\n";
}

/// The score with the lines of the log. A text that is spoken and logged is marked; one that is
/// only logged is added to the line of the text that was logged before it.
inline std::string WithLog(std::string score, std::string_view log) {
    std::size_t at = 0;
    while (!log.empty()) {
        const std::size_t end = std::min(log.find("\r\n"), log.size());
        const std::string line(log.substr(0, end));
        log.remove_prefix(std::min(end + 2, log.size()));
        const std::string spoken = '"' + line + '"';
        if (const std::size_t found = score.find(spoken, at); found != score.npos) {
            at = found + spoken.size();
            score.insert(at, " (logged)");
        } else {
            at = score.find('\n', at);
            score.insert(at, " | log " + spoken);
            at += 7 + spoken.size();
        }
    }
    return score;
}

}  // namespace tamlo
