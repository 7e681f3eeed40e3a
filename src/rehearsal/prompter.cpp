#include "rehearsal/prompter.h"

#include <algorithm>
#include <utility>

#include "text/printable.h"

namespace tamlo {

namespace {

bool AtRest(Step::Kind kind) {
    return kind == Step::Kind::press || kind == Step::Kind::set || kind == Step::Kind::show;
}

}  // namespace

Prompter::Prompter(std::vector<Step> steps, const FieldAccess& fields, Trace& trace)
    : steps_(std::move(steps)), fields_(fields), trace_(trace) {}

void Prompter::Advance(Ticks now, Ticks rest) {
    for (Ticks moment = NextMoment(rest); !Done() && moment <= now; moment = NextMoment(rest)) {
        const Step& step = steps_[next_];
        // Rest is noticed in an event turn, and not before the step was reached.
        CarryOut(step, AtRest(step.kind) ? now : moment);
    }
}

void Prompter::Heard(std::string_view text, Ticks begin) {
    Advance(begin, never);
    if (Done() || begin < reached_) return;
    const Step& step = steps_[next_];
    if (step.kind != Step::Kind::upon_speech || triggered_) return;
    if (text.find(step.words[0]) != std::string_view::npos) triggered_ = begin + reaction;
}

void Prompter::SoundStarted(std::string_view name, Ticks now) {
    if (Done()) return;
    const Step& step = steps_[next_];
    if (step.kind != Step::Kind::upon_sound || triggered_) return;
    if (name == step.words[0]) triggered_ = now + reaction;
}

void Prompter::CarryOut(const Step& step, Ticks moment) {
    switch (step.kind) {
        case Step::Kind::press:
        case Step::Kind::upon_speech:
        case Step::Kind::upon_sound:
        case Step::Kind::after: keys_.push_back(step.key); break;
        case Step::Kind::draw:
            draws_.insert(draws_.end(), step.numbers.begin(), step.numbers.end());
            break;
        case Step::Kind::set: fields_.set(step.words[0], step.words[1]); break;
        case Step::Kind::show: {
            std::string fields;
            for (const std::string& field : step.words) fields += ' ' + fields_.show(field);
            trace_.Write(moment, "state" + fields);
            break;
        }
    }
    reached_ = moment;
    triggered_.reset();
    ++next_;
}

Ticks Prompter::NextMoment(Ticks rest) const {
    if (Done()) return rest;
    const Step& step = steps_[next_];
    switch (step.kind) {
        case Step::Kind::press:
        case Step::Kind::set:
        case Step::Kind::show: return keys_.empty() ? rest : never;
        case Step::Kind::upon_speech:
        case Step::Kind::upon_sound: return triggered_.value_or(never);
        case Step::Kind::after: return reached_ + step.delay;
        case Step::Kind::draw: break;
    }
    return reached_;
}

Ticks Prompter::Deadline() const {
    if (Done()) return reached_ + patience;
    const Step::Kind kind = steps_[next_].kind;
    const bool comes_by_itself = kind == Step::Kind::after || kind == Step::Kind::draw;
    return comes_by_itself || triggered_ ? never : reached_ + patience;
}

std::string Prompter::Waiting() const {
    if (Done()) return "the end of the script waits for the game to come to rest";
    const Step& step = steps_[next_];
    const std::string line = "line " + std::to_string(step.line) + " waits for ";
    if (step.kind == Step::Kind::upon_speech) {
        return line + "an utterance with " + Quoted(step.words[0]);
    }
    if (step.kind == Step::Kind::upon_sound) return line + "the sound " + step.words[0];
    return line + "the game to come to rest";
}

std::optional<double> Prompter::TakeDraw() {
    if (draws_.empty()) return {};
    const double draw = draws_.front();
    draws_.pop_front();
    return draw;
}

}  // namespace tamlo
