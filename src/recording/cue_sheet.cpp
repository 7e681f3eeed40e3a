#include "recording/cue_sheet.h"

#include <algorithm>
#include <cstdio>

namespace tamlo {
namespace {

constexpr Ticks caption_length = 2 * ticks_per_second;

/// Hours, minutes and seconds with three decimals.
std::string TimeText(Ticks ticks) {
    const auto seconds = static_cast<long long>(ticks / ticks_per_second);
    char text[40];
    std::snprintf(text, sizeof text, "%02lld:%02lld:%02lld.%02d0", seconds / 3600,
                  seconds / 60 % 60, seconds % 60, static_cast<int>(ticks % ticks_per_second));
    return text;
}

/// The line without what the format takes for markup.
std::string Escaped(const std::string& line) {
    std::string text;
    for (const char c : line) {
        if (c == '&')
            text += "&amp;";
        else if (c == '<')
            text += "&lt;";
        else if (c == '>')
            text += "&gt;";
        else
            text += c;
    }
    return text;
}

}  // namespace

void CueSheet::AddSpeech(const std::string& line, Ticks begin, Ticks end) {
    cues_.push_back({begin, std::max(end, begin + 1), line, true});
}

void CueSheet::CutSpeech(Ticks now) {
    for (auto cue = cues_.rbegin(); cue != cues_.rend(); ++cue) {
        if (!cue->speech) continue;
        if (cue->end <= now) break;  // and so have all before it
        cue->begin = std::min(cue->begin, now);
        cue->end = std::max(now, cue->begin + 1);
    }
}

void CueSheet::AddCaption(const std::string& line, Ticks begin) {
    cues_.push_back({begin, begin + caption_length, line, false});
}

std::string CueSheet::Text() const {
    std::vector<Cue> cues = cues_;
    std::stable_sort(cues.begin(), cues.end(),
                     [](const Cue& a, const Cue& b) { return a.begin < b.begin; });
    std::string text = "WEBVTT\n";
    for (const Cue& cue : cues) {
        text += "\n" + TimeText(cue.begin) + " --> " + TimeText(cue.end) + "\n" +
                Escaped(cue.line) + "\n";
    }
    return text;
}

}  // namespace tamlo
