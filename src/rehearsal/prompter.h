// The prompter: executes a script's steps when they are due.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rehearsal/script.h"
#include "rehearsal/trace.h"
#include "rehearsal/virtual_time.h"

namespace tamlo {

/// How a script reaches the fields of the running game.
struct FieldAccess {
    std::function<void(std::string_view field, std::string_view value)> set;
    /// The field as `FIELD=VALUE`.
    std::function<std::string(std::string_view field)> show;
};

class Prompter {
  public:
    /// A step that waits for the game longer than this has failed.
    static constexpr Ticks patience = 3600 * ticks_per_second;
    /// The time between the event of an `upon` and its key.
    static constexpr Ticks reaction = 10;

    /// `fields` is used only while the game runs.
    Prompter(std::vector<Step> steps, const FieldAccess& fields, Trace& trace);

    /// Executes every step that is due by `now`. The game is, or will be, at rest from `rest` on,
    /// unless it asks for something before. A step that needs rest also waits until the game has
    /// received every key pressed before.
    void Advance(Ticks now, Ticks rest);
    /// To be called when an utterance begins to be heard, at `begin`: not before the steps already
    /// executed.
    void Heard(std::string_view text, Ticks begin);
    void SoundStarted(std::string_view name, Ticks now);

    /// When Advance will next do something, as far as is known.
    Ticks NextMoment(Ticks rest) const;
    /// When the current step will have failed; `never` for a step that only waits for time.
    Ticks Deadline() const;
    /// Whether every step has been executed.
    bool Done() const { return next_ == steps_.size(); }
    /// What the current step waits for, for the message about its failure.
    std::string Waiting() const;

    /// Keys pressed but not yet passed to the game, oldest first.
    std::vector<int>& Keys() { return keys_; }
    bool KeysWaiting() const { return !keys_.empty(); }
    /// Appends steps to those of the script. Executed steps are dropped, so that a rehearsal of any
    /// length needs little memory.
    void Add(const std::vector<Step>& steps) {
        steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(next_));
        next_ = 0;
        steps_.insert(steps_.end(), steps.begin(), steps.end());
    }
    /// The next scripted draw, taken from its queue.
    std::optional<double> TakeDraw();

  private:
    void CarryOut(const Step& step, Ticks moment);

    std::vector<Step> steps_;
    const FieldAccess& fields_;
    Trace& trace_;
    std::size_t next_ = 0;
    Ticks reached_ = 0;               ///< when the step before `next_` was executed
    std::optional<Ticks> triggered_;  ///< when the current `upon` presses its key
    std::vector<int> keys_;
    std::deque<double> draws_;
};

}  // namespace tamlo
