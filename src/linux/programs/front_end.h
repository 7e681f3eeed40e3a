// What the three front ends share: the services of the system, the voice, and the lines to read.
#pragma once

#include <functional>
#include <string_view>

#include "audio/voice/voice_speech.h"
#include "linux/programs/machine.h"
#include "linux/sound/sound_output.h"
#include "linux/system/system_clock.h"
#include "linux/system/system_random.h"
#include "reading/captioned_sound.h"
#include "reading/captioned_speech.h"
#include "services/disk_files.h"
#include "services/end_of_process.h"

namespace tamlo {

class DesktopWindow;
struct Platform;

/// How a session ended.
struct SessionEnd {
    EndOfProcess end;
    bool restart = false;
};

/// The services that are the same in every front end.
struct SystemServices {
    DiskFiles files;
    SystemClock clock;
    SystemRandom random;
};

/// The voice, heard through the sound output for as long as it lives.
class HeardVoice {
  public:
    /// `explain` gets the reason if there is no voice, `unspoken` the texts that should have been
    /// heard and could not be said.
    HeardVoice(SoundOutput& sound, std::function<void()> patience, WriteLine explain,
               WriteLine unspoken = {});
    HeardVoice(const HeardVoice&) = delete;
    HeardVoice& operator=(const HeardVoice&) = delete;
    ~HeardVoice() { sound_.Detach(speech_.Stream()); }

    Speech& Service() { return speech_; }
    /// Whether there are a voice and a card.
    bool Audible() const { return sound_.Audible() && !silent_; }

  private:
    void Show(std::string_view text);
    void ExplainSilence();

    SoundOutput& sound_;
    WriteLine explain_;
    WriteLine unspoken_;
    bool silent_ = false;
    VoiceSpeech speech_;
};

/// The voice and the sound, written as lines as well as heard.
struct Captioned {
    Captioned(Speech& voice, SoundOutput& sound, const Clock& clock, const WriteLine& write);
    void Beep();

    SoundOutput& output;
    Captions captions;
    CaptionedSpeech speech;
    CaptionedSound sounds;
};

/// Runs the session on these services; returns how it ended.
EndOfProcess RunSession(SoundOutput& sound, const Platform& platform, const Session& session);

SessionEnd PlayInWindow(SoundOutput& sound, DesktopWindow& window, const Session& session);
/// On standard input, which must be a terminal.
SessionEnd PlayInTerminal(SoundOutput& sound, const Session& session);
/// On standard input, whatever it is.
SessionEnd PlayFromPipe(SoundOutput& sound, const Session& session);

}  // namespace tamlo
