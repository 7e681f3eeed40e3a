// The primitives of speaking and waiting.
#include <chrono>
#include <cmath>

#include "game/form1.h"
#include "services/clock.h"
#include "services/speech.h"

namespace tamlo {

void Form1::say(std::string_view text) {
    gs.Voice->Speak(text, SpeakFlags::wait);
}

void Form1::say2(std::string_view text) {
    gs.Voice->Speak(text, SpeakFlags::queue);
}

void Form1::stopspeech() {
    gs.Voice->Speak("", SpeakFlags::purge);
}

bool Form1::speaking() const {
    return gs.Voice->Status() == RunningState::speaking;
}

void Form1::w4s() {
    dy(0.3);  // speech that was just queued needs time to start
    do {
        keyturn(gs.Voice->SecondsLeft());
    } while (gs.g.empty() && speaking());
    stopspeech();
}

void Form1::dy(double seconds) {
    using std::chrono::microseconds;
    const microseconds end =
        platform.clock.Steady() + microseconds(std::llround(seconds * 1'000'000));
    microseconds now = platform.clock.Steady();
    do {
        pumpEvents(std::chrono::duration<double>(end - now).count());
        now = platform.clock.Steady();
    } while (now <= end);
}

void Form1::setupvoice() {
    gs.Voice = platform.speech.CreateEngine();
    gs.Voice->SetVoice(gs.nv);
    gs.Voice->SetRate(gs.vr);
    gs.Voice->SetVolume(gs.vv);
}

}  // namespace tamlo
