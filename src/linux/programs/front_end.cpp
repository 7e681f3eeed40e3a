#include "linux/programs/front_end.h"

#include <utility>

#include "app/sounds/sound_meanings.h"
#include "game/form1.h"
#include "text/printable.h"

namespace tamlo {

HeardVoice::HeardVoice(SoundOutput& sound, std::function<void()> patience, WriteLine explain,
                       WriteLine unspoken)
    : sound_(sound),
      explain_(std::move(explain)),
      unspoken_(std::move(unspoken)),
      speech_({.patience = std::move(patience),
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

EndOfProcess RunSession(const Platform& platform, const Session& session) {
    try {
        Form1 game(platform);
        session(game);
    } catch (const EndOfProcess& end) {
        return end;
    }
    return {};
}

}  // namespace tamlo
