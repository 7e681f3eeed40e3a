// A performance as a score: what is heard, and after which pause.
#pragma once

#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

#include "performance.h"
#include "store/text_encoding.h"

namespace tamlo {

/// Seconds for which a line of a trace holds the game up: a blocking utterance its length.
inline double Held(const TraceLine& line) {
    if (!line.event.starts_with("say \"")) return 0;
    constexpr std::string_view around = "say \"\"";
    return 0.05 * static_cast<double>(CountCharacters(line.event) - around.size());
}

/// One line a moment, with the seconds since the end of what came before if there are any. What
/// only prepares a sound is left out: its `play` tells its volume, pan and frequency. A key's echo,
/// a little faster than other speech, is one event.
inline std::string Score(const Performance& run) {
    std::string score;
    double end = 0;
    double held = 0;
    const auto& lines = run.lines;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string event = lines[i].event;
        if (event.starts_with("load ") || event.starts_with("setfrequency ")) continue;
        if (event.starts_with("setvolume ") || event.starts_with("setpan ")) continue;
        const bool echo = i + 3 < lines.size() && event.starts_with("rate ") &&
                          lines[i + 1].event == "hush" && lines[i + 3].event.starts_with("rate ");
        if (echo) {
            event = "echo" + lines[i + 2].event.substr(4);
            i += 3;
        }
        char pause[32] = "";
        const double seconds = lines[i].seconds - end;
        if (std::abs(seconds) > 0.001) std::snprintf(pause, sizeof pause, "+%.2f ", seconds);
        const bool same_moment = *pause == '\0' && held == 0;
        score += (score.empty() ? "" : same_moment ? " | " : "\n") + (pause + event);
        held = Held(lines[i]);
        end = lines[i].seconds + held;
    }
    return score + "\n";
}

}  // namespace tamlo
