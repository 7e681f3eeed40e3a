// The game with keys from a pipe: every line is printed, and nothing is lost.
#include "linux/programs/front_end.h"

#include <unistd.h>

#include <string>

#include "game/form1.h"
#include "linux/pipe/observed.h"
#include "linux/pipe/piped_events.h"
#include "linux/system/system_desktop.h"
#include "linux/terminal/terminal_front_end.h"

namespace tamlo {

SessionEnd PlayFromPipe(const Hearing& hearing, const Session& session) {
    SystemServices system;
    SignalWatch signals;
    KeyInput keys(STDIN_FILENO, Gaps::lost, system.clock, signals);
    Activity activity(system.clock);
    PipedEvents events(keys, activity, signals, system.clock);
    const auto pump = [&] { events.Pump(); };
    LinePrinter printer(STDOUT_FILENO, LinePrinter::WhenStuck::wait, pump);
    const WriteLine print = [&](const std::string& line) { printer.Print(line); };
    HeardVoice voice(hearing, pump, print);
    Captioned heard(voice.Service(), hearing.sound, system.clock, [&](const std::string& line) {
        voice.TellFindings();
        print(line);
    });
    SystemDesktop desktop(
        {.message_box = [&](const std::string& text) { ShowMessage(text, events, printer); },
         .beep = [&] { heard.Beep(); },
         .edit = [](const std::string&) { return false; }});

    ObservedSpeech speech(heard.speech, activity);
    ObservedSound sounds(heard.sounds, activity);
    ObservedFiles files(system.files, activity);
    ObservedDesktop watched_desktop(desktop, activity);
    ObservedRandom random(system.random, activity);
    const EndOfProcess end =
        RunSession(hearing.sound,
                   {speech, sounds, events, files, system.clock, watched_desktop, random}, session);
    return {end, desktop.RestartWanted()};
}

}  // namespace tamlo
