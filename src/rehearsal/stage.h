// The state of a rehearsal: its clock, what is being spoken and played, and the prompter.
//
// Time passes in two ways only: in an event turn, and in a blocking utterance. Time advances from
// one moment at which something can happen to the next, so that even a long wait costs few steps.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rehearsal/prompter.h"
#include "rehearsal/script.h"
#include "rehearsal/trace.h"
#include "rehearsal/virtual_time.h"
#include "services/end_of_process.h"
#include "services/events.h"

namespace tamlo {

class RehearsedBuffer;

/// The texts given to a voice, spoken one after the other.
class SpeechQueue {
  public:
    /// Queues a text of this length; returns when it will have been spoken.
    Ticks Add(std::string_view text, Ticks now, Ticks length);
    /// Drops everything at `now`. A text that begins at this very moment is not heard.
    void Purge(Ticks now);
    /// When the last text will have been spoken; not later than now if nothing is being spoken.
    Ticks EndsAt() const { return ends_at_; }
    /// When TakeHeard can return the next text; `never` if there is none.
    Ticks NextHeard() const { return texts_.empty() ? never : texts_.front().begin + 1; }
    struct Utterance {
        std::string text;
        Ticks begin = 0;
        Ticks end = 0;
    };
    /// The next text of which something has been heard by `now`, in the order of their starts.
    std::optional<Utterance> TakeHeard(Ticks now);

  private:
    std::deque<Utterance> texts_;
    Ticks ends_at_ = 0;
};

class Stage {
  public:
    Stage(std::vector<Step> steps, const FieldAccess& fields, TraceSink sink);

    /// `more` is called for more steps when the last one is executed and the game is at rest.
    void ContinueWith(std::function<std::vector<Step>()> more) { more_ = std::move(more); }

    Ticks Now() const { return now_; }
    void Write(std::string_view event, std::string_view detail = {}) {
        trace_.Write(now_, event, detail);
    }
    /// To be called when the game asks for something other than an event turn, the clock or a
    /// status.
    void Asked() { asked_ = now_; }

    /// Queues a text; with `wait`, lets time pass until it has been spoken.
    void Speak(std::string_view text, Ticks length, bool wait);
    void Hush();
    Ticks SpeechEndsAt() const { return speech_.EndsAt(); }

    /// Buffers register here while they exist.
    void Add(RehearsedBuffer& buffer) { buffers_.push_back(&buffer); }
    void Remove(RehearsedBuffer& buffer) { std::erase(buffers_, &buffer); }
    void SoundStarted(std::string_view name) { prompter_.SoundStarted(name, now_); }

    std::optional<double> TakeDraw() { return prompter_.TakeDraw(); }

    /// Executes the steps that need no time.
    void Begin() { prompter_.Advance(now_, never); }
    /// One event turn, or as many as fit into `rest` seconds until something happens.
    void Turn(KeyListener& listener, double rest);
    /// Writes the last line, unless that is done already, and closes the trace.
    void End(std::string_view last_line);
    bool Ended() const { return ended_; }

  private:
    void Pass(Ticks moment);
    Ticks RestMoment() const;
    Ticks NextHappening() const;

    Trace trace_;
    Prompter prompter_;
    SpeechQueue speech_;
    std::vector<RehearsedBuffer*> buffers_;
    Ticks now_ = 0;
    Ticks asked_ = 0;
    bool ended_ = false;
    std::function<std::vector<Step>()> more_;
};

}  // namespace tamlo
