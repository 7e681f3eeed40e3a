// Where a recording is made: its files, the voice, and the lines, all moved on together.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "recording/cue_sheet.h"
#include "recording/spoken_samples.h"
#include "recording/take.h"

namespace tamlo {

/// What the person who records wants otherwise than the game asks.
struct RecordingChoices {
    std::optional<int> voice;  ///< from 0
    std::optional<int> rate;   ///< -10 to 10
};

class Desk {
  public:
    /// `now` gives the ticks since the start.
    Desk(std::vector<std::unique_ptr<Take>> takes, std::unique_ptr<Synthesizer> synthesizer,
         RecordingChoices choices, std::function<Ticks()> now);

    /// Writes everything heard so far; called before anything changes.
    void CatchUp();
    /// The text is spoken after what is being spoken: how long it takes, for the rehearsal to wait.
    void Say(std::string_view text, int rate, int voice);
    Ticks LastLength() const { return last_length_; }
    void Hush();
    /// 0 to 100.
    void SetVolume(int volume);
    void Caption(const std::string& line);
    void Beep();

    /// Those that have what belongs to `part`.
    std::vector<Take*> TakesOf(Part part) const;
    /// Writes the rest and completes the files; what comes later is not recorded.
    void Close();
    const CueSheet& Cues() const { return cues_; }

  private:
    std::vector<std::unique_ptr<Take>> takes_;
    SpokenSamples spoken_;
    RecordingChoices choices_;
    std::function<Ticks()> now_;
    CueSheet cues_;
    Ticks speech_ends_ = 0;
    Ticks last_length_ = 0;
    bool closed_ = false;
};

}  // namespace tamlo
