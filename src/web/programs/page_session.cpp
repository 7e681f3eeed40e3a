#include "web/programs/page_session.h"

#include <chrono>
#include <cstring>
#include <memory>
#include <optional>

#include "app/chance/system_random.h"
#include "app/sounds/sound_meanings.h"
#include "audio/voice/voice_speech.h"
#include "game/form1.h"
#include "reading/captioned_sound.h"
#include "reading/captioned_speech.h"
#include "services/end_of_process.h"
#include "text/printable.h"
#include "web/files/kept_files.h"
#include "web/page/page_calls.h"
#include "web/page/page_desktop.h"
#include "web/page/page_events.h"
#include "web/page/page_keeper.h"
#include "web/page/page_mail.h"
#include "web/sound/ring_output.h"
#include "web/system/web_clock.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;

constexpr auto longest_opening = 1500ms;
const std::string wave_ending = ".wav";

SharedRing the_ring;

void ShowLine(const std::string& line) {
    tamlo_page_line(::strdup(line.c_str()));
}

/// The voice, heard through the ring for as long as it lives.
class HeardVoice {
  public:
    HeardVoice(RingOutput& sound, std::function<void()> patience)
        : sound_(sound),
          speech_({.patience = std::move(patience),
                   .unspoken = [](std::string_view text) { ShowLine(PrintableLine(text)); },
                   .silent =
                       [this] {
                           ExplainSilence();
                           return true;
                       }}) {
        sound_.Attach(speech_.Stream());
    }
    HeardVoice(const HeardVoice&) = delete;
    HeardVoice& operator=(const HeardVoice&) = delete;
    ~HeardVoice() { sound_.Detach(speech_.Stream()); }

    Speech& Service() { return speech_; }
    bool Speaks() const { return !silent_; }

  private:
    void ExplainSilence() {
        silent_ = true;
        ShowLine("Nothing is spoken: no voice could be made ready. Please load the page again.");
    }

    RingOutput& sound_;
    bool silent_ = false;
    VoiceSpeech speech_;
};

/// The sound, and the voice in it.
struct Heard {
    Heard(WaveReader read, PageEvents& events)
        : sound(the_ring, std::move(read)), voice(sound, [&events] { events.Pump(); }) {
        tamlo_page_ring(&the_ring);
    }

    RingOutput sound;
    HeardVoice voice;
};

}  // namespace

PageEnd PlayInPage(PageEvents& events, PageMail& mail, const Session& session) {
    PageKeeper keeper;
    KeptFiles files({player_path, program_path}, keeper);
    files.LetArrive([&] { mail.AwaitSounds(files); });
    mail.Deliver(files);
    events.InEachTurn([&] { mail.Deliver(files); });
    WebClock clock;
    SystemRandom random;
    Heard heard(
        [&files](const std::string& name) {
            const auto bytes = files.Programs(name + wave_ending);
            return bytes ? std::optional<std::string>(*bytes) : std::nullopt;
        },
        events);
    Captions captions(MeaningOfSound, clock, ShowLine);
    CaptionedSpeech speech(heard.voice.Service(), ShowLine);
    CaptionedSound sounds(heard.sound.Sound(), captions);
    const auto beep = [&] {
        heard.sound.Beep();
        captions.Beeped();
    };
    PageDesktop desktop(
        heard.voice.Service(), files, [&] { return heard.voice.Speaks(); }, beep);
    try {
        const Platform platform{speech, sounds, events, files, clock, desktop, random};
        Form1 game(platform);
        heard.sound.AwaitWorklet(longest_opening);
        session(game);
    } catch (const EndOfProcess& end) {
        return {end.exit_status, end.reason, desktop.RestartWanted()};
    }
    return {};
}

PageEnd SayInPage(PageEvents& events, const std::string& text) {
    Heard heard([](const std::string&) { return std::nullopt; }, events);
    heard.sound.AwaitWorklet(longest_opening);
    ShowLine(PrintableLine(text));
    heard.voice.Service().CreateEngine()->Speak(text, SpeakFlags::wait);
    return {heard.voice.Speaks() && heard.sound.Audible() ? 0 : 1, "", false};
}

}  // namespace tamlo
