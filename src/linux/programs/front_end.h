// What the three front ends share: the services of the system, the voice, and the lines to read.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "app/chance/system_random.h"
#include "audio/voice/voice_speech.h"
#include "linux/programs/machine.h"
#include "linux/sound/sound_output.h"
#include "linux/system/system_clock.h"
#include "linux/voice/installed_voices.h"
#include "reading/captioned_sound.h"
#include "reading/captioned_speech.h"
#include "services/disk_files.h"
#include "services/end_of_process.h"

namespace tamlo {

class DesktopWindow;
struct Platform;

/// Where a session is heard.
struct Hearing {
    SoundOutput& sound;
    const InstalledVoices& voices;
};

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
    /// `explain` gets the reason if there is no voice, or another one than usual. `unspoken` gets
    /// the texts that should have been heard and could not be said, on the voice's thread as well.
    /// `readable` tells, if there is no voice, whether somebody reads the lines in its place.
    HeardVoice(
        const Hearing& hearing, std::function<void()> patience, WriteLine explain,
        WriteLine unspoken = {}, std::function<bool()> readable = [] { return true; });
    HeardVoice(const HeardVoice&) = delete;
    HeardVoice& operator=(const HeardVoice&) = delete;
    ~HeardVoice() { sound_.Detach(speech_.Stream()); }

    Speech& Service() { return speech_; }
    /// Whether there are a voice and a card.
    bool Audible() const { return sound_.Audible() && !silent_; }
    /// Gives `explain` what the voice's thread has found; to be called now and then.
    void TellFindings();

  private:
    void Show(std::string_view text);
    bool ExplainSilence();
    void AddFinding(std::string_view sentence);
    GuardedVoiceHooks Hooks();

    SoundOutput& sound_;
    WriteLine explain_;
    WriteLine unspoken_;
    std::function<bool()> readable_;
    std::atomic<bool> silent_{false};
    std::mutex mutex_;
    std::vector<std::string> findings_;
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

SessionEnd PlayInWindow(const Hearing& hearing, DesktopWindow& window, const Session& session);
/// On standard input, which must be a terminal.
SessionEnd PlayInTerminal(const Hearing& hearing, const Session& session);
/// On standard input, whatever it is.
SessionEnd PlayFromPipe(const Hearing& hearing, const Session& session);

}  // namespace tamlo
