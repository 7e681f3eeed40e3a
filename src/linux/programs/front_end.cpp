#include "linux/programs/front_end.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "app/sounds/sound_meanings.h"
#include "game/form1.h"
#include "services/events.h"
#include "text/printable.h"

namespace tamlo {
namespace {

/// The families' own patience is shorter: see VoicePatience.
constexpr std::chrono::seconds longest_silence{10};

}  // namespace

HeardVoice::HeardVoice(const Hearing& hearing, std::function<void()> patience, WriteLine explain,
                       WriteLine unspoken, std::function<bool()> readable)
    : sound_(hearing.sound),
      explain_(std::move(explain)),
      unspoken_(std::move(unspoken)),
      readable_(std::move(readable)),
      speech_({.patience =
                   [this, pump = std::move(patience)] {
                       TellFindings();
                       sound_.TurnClock();
                       pump();
                   },
               .unspoken = [this](std::string_view text) { Show(text); },
               .silent = [this] { return ExplainSilence(); }},
              hearing.voices.Maker(Hooks()), longest_silence) {
    sound_.Attach(speech_.Stream());
}

void HeardVoice::Show(std::string_view text) {
    if (unspoken_ && Audible()) unspoken_(PrintableLine(text));
}

GuardedVoiceHooks HeardVoice::Hooks() {
    return {.unspoken = [this](std::string_view text) { Show(text); },
            .explain = [this](std::string_view sentence) { AddFinding(sentence); }};
}

void HeardVoice::AddFinding(std::string_view sentence) {
    const std::lock_guard lock(mutex_);
    findings_.emplace_back(sentence);
}

void HeardVoice::TellFindings() {
    std::vector<std::string> findings;
    {
        const std::lock_guard lock(mutex_);
        findings.swap(findings_);
    }
    for (const std::string& sentence : findings) explain_(sentence);
}

bool HeardVoice::ExplainSilence() {
    silent_ = true;
    explain_("Nothing is spoken: no voice could be made ready.");
    explain_("The packages libespeak-ng1 and espeak-ng-data are needed.");
    return readable_();
}

Captioned::Captioned(Speech& voice, SoundOutput& sound, const Clock& clock, const WriteLine& write)
    : output(sound),
      captions(MeaningOfSound, clock, write),
      speech(voice, write),
      sounds(sound.Sound(), captions) {}

void Captioned::Beep() {
    output.Beep();
    captions.Beeped();
}

namespace {

/// The events, and the sound's time between them where the system had no thread for it.
class ClockedEvents final : public Events {
  public:
    ClockedEvents(Events& events, SoundOutput& sound) : events_(events), sound_(sound) {}

    void ShowWindow(const char* caption) override { events_.ShowWindow(caption); }
    void Turn(KeyListener& listener, double rest) override {
        events_.Turn(listener, std::min(rest, sound_.TurnClock()));
    }

  private:
    Events& events_;
    SoundOutput& sound_;
};

}  // namespace

EndOfProcess RunSession(SoundOutput& sound, const Platform& platform, const Session& session) {
    ClockedEvents events(platform.events, sound);
    const Platform clocked{platform.speech, platform.sound,   events,         platform.files,
                           platform.clock,  platform.desktop, platform.random};
    try {
        Form1 game(clocked);
        session(game);
    } catch (const EndOfProcess& end) {
        return end;
    }
    return {};
}

}  // namespace tamlo
