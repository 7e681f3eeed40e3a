// The lines of a recording with their times, as WebVTT.
#pragma once

#include <string>
#include <vector>

#include "rehearsal/virtual_time.h"

namespace tamlo {

class CueSheet {
  public:
    /// A line of speech, queued at `now`, that is heard from `begin` to `end`.
    void AddSpeech(const std::string& line, Ticks begin, Ticks end);
    /// All speech is dropped. What has not been heard yet stays as a line of one tick: it was asked
    /// for, and a player who reads has seen it.
    void CutSpeech(Ticks now);
    /// A caption, with its brackets; shown for two seconds.
    void AddCaption(const std::string& line, Ticks begin);

    /// The whole file, in the order of the begins.
    std::string Text() const;

  private:
    struct Cue {
        Ticks begin;
        Ticks end;
        std::string line;
        bool speech;
    };
    std::vector<Cue> cues_;
};

}  // namespace tamlo
