// The prompter: carries out a script's steps when their moments come.
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
    /// A step that waits for the game longer than this has waited in vain.
    static constexpr Ticks patience = 3600 * ticks_per_second;
    /// From what an `upon` waits for to its key.
    static constexpr Ticks reaction = 10;

    /// `fields` is used only once the game runs.
    Prompter(std::vector<Step> steps, const FieldAccess& fields, Trace& trace);

    /// Carries out every step whose moment has come by `now`. The game is, or will be, at rest
    /// from `rest` on unless it asks for something first; a step at rest waits besides until the
    /// game has been handed every key pressed before.
    void Advance(Ticks now, Ticks rest);
    /// An utterance has begun to be heard at `begin`, which may lie before steps not yet
    /// carried out but not before those that were.
    void Heard(std::string_view text, Ticks begin);
    void SoundStarted(std::string_view name, Ticks now);

    /// When Advance would next do something, as far as is known.
    Ticks NextMoment(Ticks rest) const;
    /// When the present step has waited in vain; `never` for a step that comes by itself.
    Ticks Deadline() const;
    /// Every step has been carried out.
    bool Done() const { return next_ == steps_.size(); }
    /// What the present step waits for, for the message that it has not come.
    std::string Waiting() const;

    /// Keys pressed and not yet handed to the game, oldest first.
    std::vector<int>& Keys() { return keys_; }
    bool KeysWaiting() const { return !keys_.empty(); }
    /// Steps to carry out besides those of the script, behind them. Those that are done are
    /// forgotten, so that a rehearsal can go on for as long as it likes.
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
    Ticks reached_ = 0;               ///< when the step before `next_` was carried out
    std::optional<Ticks> triggered_;  ///< when the present `upon` presses its key
    std::vector<int> keys_;
    std::deque<double> draws_;
};

}  // namespace tamlo
