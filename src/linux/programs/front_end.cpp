#include "linux/programs/front_end.h"

#include <algorithm>
#include <utility>

#include "app/sounds/sound_meanings.h"
#include "game/form1.h"
#include "services/events.h"
#include "text/printable.h"

namespace tamlo {

HeardVoice::HeardVoice(SoundOutput& sound, std::function<void()> patience, WriteLine explain,
                       WriteLine unspoken)
    : sound_(sound),
      explain_(std::move(explain)),
      unspoken_(std::move(unspoken)),
      speech_({.patience =
                   [this, pump = std::move(patience)] {
                       sound_.TurnClock();
                       pump();
                   },
               .unspoken = [this](std::string_view text) { Show(text); },
               .silent = [this] { ExplainSilence(); }}) {
    sound_.Attach(speech_.Stream());
}

void HeardVoice::Show(std::string_view text) {
    if (unspoken_ && Audible()) unspoken_(PrintableLine(text));
}

void HeardVoice::ExplainSilence() {
    silent_ = true;
    explain_("Nothing is spoken: no voice could be made ready.");
    explain_("The packages libespeak-ng1 and espeak-ng-data are needed.");
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
