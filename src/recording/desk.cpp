#include "recording/desk.h"

#include <algorithm>

#include "text/printable.h"

namespace tamlo {

Desk::Desk(std::vector<std::unique_ptr<Take>> takes, std::unique_ptr<Synthesizer> synthesizer,
           RecordingChoices choices, std::function<Ticks()> now)
    : takes_(std::move(takes)),
      spoken_(std::move(synthesizer)),
      choices_(choices),
      now_(std::move(now)) {}

void Desk::CatchUp() {
    if (closed_) return;
    for (const auto& take : takes_) take->RenderTo(now_());
}

void Desk::Say(std::string_view text, int rate, int voice) {
    CatchUp();
    const Ticks begin = std::max(now_(), speech_ends_);
    std::vector<float> samples = spoken_.Of(text, choices_.rate.value_or(rate),
                                            choices_.voice.value_or(voice), speech_ends_ > now_());
    // Whole ticks, so that the next text begins where the rehearsal has it.
    const std::size_t ticks = (samples.size() + Take::tick_frames - 1) / Take::tick_frames;
    samples.resize(ticks * Take::tick_frames);
    for (Take* take : TakesOf(Part::voice)) take->Say(samples);
    last_length_ = static_cast<Ticks>(ticks);
    speech_ends_ = begin + last_length_;
    const std::string line = PrintableLine(text);
    if (!line.empty()) cues_.AddSpeech(line, begin, speech_ends_);
}

void Desk::Hush() {
    CatchUp();
    speech_ends_ = std::min(speech_ends_, now_());
    cues_.CutSpeech(now_());
    for (Take* take : TakesOf(Part::voice)) take->Hush();
}

void Desk::SetVolume(int volume) {
    CatchUp();
    const float gain = static_cast<float>(std::clamp(volume, 0, 100)) / 100.0F;
    for (Take* take : TakesOf(Part::voice)) take->SetVolume(gain);
}

void Desk::Caption(const std::string& line) {
    cues_.AddCaption(line, now_());
}

void Desk::Beep() {
    CatchUp();
    for (Take* take : TakesOf(Part::effects)) take->Sounds().Beep();
}

std::vector<Take*> Desk::TakesOf(Part part) const {
    std::vector<Take*> found;
    for (const auto& take : takes_)
        if (take->Has(part)) found.push_back(take.get());
    return found;
}

void Desk::Close() {
    CatchUp();
    closed_ = true;
    for (const auto& take : takes_) take->Close();
}

}  // namespace tamlo
