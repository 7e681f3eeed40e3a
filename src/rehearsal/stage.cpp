#include "rehearsal/stage.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "rehearsal/rehearsed_sound.h"

namespace tamlo {

namespace {

/// The game is at rest after being quiet and asking for nothing for this long.
constexpr Ticks rest_after = 6 * ticks_per_second;

/// The tick at which a wait of `rest` seconds is over: at least one turn. Callers compute rests in
/// floating point; a rest that ends slightly after a tick ends with the tick: a caller that has not
/// waited long enough waits again, but one that has waited too long can't go back.
Ticks EndOfWait(Ticks now, double rest) {
    constexpr double hair = 1e-3;
    const double ticks = std::ceil(rest * ticks_per_second - hair);
    if (!(ticks > 1)) return now + 1;
    return ticks < static_cast<double>(never - now) ? now + static_cast<Ticks>(ticks) : never;
}

}  // namespace

Ticks SpeechQueue::Add(std::string_view text, Ticks now, Ticks length) {
    const Ticks begin = std::max(now, ends_at_);
    ends_at_ = begin + length;
    texts_.push_back({std::string(text), begin, ends_at_});
    return ends_at_;
}

void SpeechQueue::Purge(Ticks now) {
    std::erase_if(texts_, [&](const Utterance& text) { return text.end > now; });
    ends_at_ = std::min(ends_at_, now);
}

std::optional<SpeechQueue::Utterance> SpeechQueue::TakeHeard(Ticks now) {
    if (NextHeard() > now) return {};
    Utterance heard = std::move(texts_.front());
    texts_.pop_front();
    return heard;
}

Stage::Stage(std::vector<Step> steps, const FieldAccess& fields, TraceSink sink)
    : trace_(std::move(sink)), prompter_(std::move(steps), fields, trace_) {}

void Stage::Speak(std::string_view text, Ticks length, bool wait) {
    Asked();
    const Ticks end = speech_.Add(text, now_, length);
    if (!wait) return;
    asked_ = end;
    Pass(end);
}

void Stage::Hush() {
    Asked();
    speech_.Purge(now_);
}

void Stage::Turn(KeyListener& listener, double rest) {
    if (ended_) throw EndOfProcess{};
    const Ticks end = EndOfWait(now_, rest);
    Pass(now_ + 1);
    while (!prompter_.KeysWaiting() && now_ < end) {
        Pass(std::min(end, std::max(now_ + 1, NextHappening())));
    }
    // After a key the game is not at rest until it has had time to react.
    if (prompter_.KeysWaiting()) Asked();
    for (const int code : prompter_.Keys()) {
        Write("key", std::to_string(code));
        listener.Form_KeyDown(code, 0);
    }
    prompter_.Keys().clear();
}

/// Lets time pass until `moment`, with everything that happens by then in its order.
void Stage::Pass(Ticks moment) {
    now_ = moment;
    while (const auto heard = speech_.TakeHeard(now_)) prompter_.Heard(heard->text, heard->begin);
    const Ticks rest = RestMoment();
    prompter_.Advance(now_, rest);
    if (prompter_.Done() && !prompter_.KeysWaiting() && rest <= now_) {
        if (more_) prompter_.Add(more_());
        prompter_.Advance(now_, rest);
        if (!prompter_.Done() || prompter_.KeysWaiting()) return;
        End("rest");
        throw EndOfProcess{};
    }
    if (prompter_.Deadline() <= now_) {
        ended_ = true;
        trace_.Close();
        throw EndOfProcess{1, prompter_.Waiting() + ", which has not come for 3600 seconds"};
    }
}

Ticks Stage::RestMoment() const {
    Ticks quiet = std::max(asked_, speech_.EndsAt());
    for (const RehearsedBuffer* buffer : buffers_) quiet = std::max(quiet, buffer->OnceEndsAt());
    return quiet + rest_after;
}

Ticks Stage::NextHappening() const {
    return std::min(
        {prompter_.NextMoment(RestMoment()), prompter_.Deadline(), speech_.NextHeard()});
}

void Stage::End(std::string_view last_line) {
    if (ended_) return;
    Write(last_line);
    ended_ = true;
    trace_.Close();
}

}  // namespace tamlo
