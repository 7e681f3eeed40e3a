// The result of a rehearsal, and ways to look something up in it.
#pragma once

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

struct TraceLine {
    double seconds = 0;  ///< since the start
    std::string event;

    bool IsUtterance() const { return event.starts_with("say \"") || event.starts_with("say2 \""); }
    friend bool operator==(const TraceLine&, const TraceLine&) = default;
};

struct Performance {
    int exit_status = -1;
    std::string message;  ///< why the exit status is not 0
    std::string trace;    ///< as written, whole
    std::vector<TraceLine> lines;

    /// The events without their times, those that begin with `start`.
    std::vector<std::string> Events(std::string_view start = "") const {
        std::vector<std::string> events;
        for (const TraceLine& line : lines) {
            if (line.event.starts_with(start)) events.push_back(line.event);
        }
        return events;
    }

    /// Everything spoken, without quotes, in the order of the calls.
    std::vector<std::string> Spoken() const {
        std::vector<std::string> texts;
        for (const TraceLine& line : lines) {
            if (!line.IsUtterance()) continue;
            const std::size_t quote = line.event.find('"');
            texts.push_back(line.event.substr(quote + 1, line.event.size() - quote - 2));
        }
        return texts;
    }

    /// Whether an utterance contains the text.
    bool Heard(std::string_view text) const {
        const auto spoken = Spoken();
        return std::any_of(spoken.begin(), spoken.end(), [&](const std::string& utterance) {
            return utterance.find(text) != std::string::npos;
        });
    }

    /// How many lines contain the text.
    int Count(std::string_view text) const {
        return static_cast<int>(std::count_if(
            lines.begin(), lines.end(),
            [&](const TraceLine& line) { return line.event.find(text) != std::string::npos; }));
    }

    /// The time of the line number `which` (from 1) that contains the text; throws when there is
    /// none, which fails the test.
    double TimeOf(std::string_view text, int which = 1) const {
        return lines.at(IndexOf(text, which)).seconds;
    }

    /// The lines after the first one that contains `first`, up to but not including the next one
    /// that contains `last`, or to the end.
    std::vector<TraceLine> Between(std::string_view first, std::string_view last) const {
        std::vector<TraceLine> between;
        for (std::size_t i = IndexOf(first, 1) + 1; i < lines.size(); ++i) {
            if (lines[i].event.find(last) != std::string::npos) break;
            between.push_back(lines[i]);
        }
        return between;
    }

    /// The last shown value of a field, as in the trace.
    std::string Shown(std::string_view field) const {
        const std::string start = ' ' + std::string(field) + '=';
        std::string value;
        for (const TraceLine& line : lines) {
            if (!line.event.starts_with("state ")) continue;
            const std::size_t at = line.event.find(start);
            if (at == std::string::npos) continue;
            value = line.event.substr(at + start.size());
            const bool quoted = value.starts_with('"');
            value = value.substr(0, quoted ? value.find("\" ") + 1 : value.find(' '));
        }
        return value;
    }

  private:
    std::size_t IndexOf(std::string_view text, int which) const {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].event.find(text) != std::string::npos && --which == 0) return i;
        }
        throw std::out_of_range("the trace has no such line: " + std::string(text));
    }
};

/// Splits a trace into its lines.
inline std::vector<TraceLine> TraceLines(std::string_view trace) {
    std::vector<TraceLine> lines;
    while (!trace.empty()) {
        const std::size_t end = std::min(trace.find('\n'), trace.size());
        const std::string line(trace.substr(0, end));
        trace.remove_prefix(std::min(end + 1, trace.size()));
        const std::size_t blank = line.find(' ');
        lines.push_back({std::stod(line.substr(0, blank)), line.substr(blank + 1)});
    }
    return lines;
}

}  // namespace tamlo
