// The game in a terminal: every line is printed.
#include "linux/programs/front_end.h"

#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "game/form1.h"
#include "linux/system/system_desktop.h"
#include "linux/terminal/terminal_events.h"
#include "linux/terminal/terminal_front_end.h"
#include "reading/braille_display.h"
#include "text/printable.h"

namespace tamlo {
namespace {

/// On a screen that can't move its cursor back, and in a file, lines are printed plainly.
LinePrinter::Cursor CursorWanted() {
    const char* const type = std::getenv("TERM");
    const bool plain = type == nullptr || std::string_view(type) == "dumb";
    return ::isatty(STDOUT_FILENO) != 0 && !plain ? LinePrinter::Cursor::at_line
                                                  : LinePrinter::Cursor::below;
}

}  // namespace

SessionEnd PlayInTerminal(const Hearing& hearing, const Session& session) {
    SystemServices system;
    SignalWatch signals;
    TerminalMode mode(STDIN_FILENO);
    KeyInput keys(STDIN_FILENO, Gaps::kept, system.clock, signals);
    TerminalEvents events(keys, mode, signals);
    const auto pump = [&] { events.Pump(); };
    BrailleDisplay braille({.window = {}, .press = [&](int code) { keys.Press(code); }});
    LinePrinter printer(STDOUT_FILENO, LinePrinter::WhenStuck::drop, pump, CursorWanted());
    HeardVoice voice(hearing, pump, [&](const std::string& line) { printer.Print(line); });
    events.OnStop([&](bool stopped) {
        if (stopped) printer.LeaveLine();
        stopped ? braille.GiveBack() : braille.SetFocus(true);
    });
    Captioned heard(voice.Service(), hearing.sound, system.clock, [&](const std::string& line) {
        voice.TellFindings();
        braille.Show(line);
        printer.Print(line);
    });
    SystemDesktop desktop({.message_box =
                               [&](const std::string& text) {
                                   braille.Show(PrintableLine(text));
                                   ShowMessage(text, events, printer);
                               },
                           .beep = [&] { heard.Beep(); },
                           .edit =
                               [&](const std::string& path) {
                                   braille.GiveBack();
                                   const bool edited = EditInTerminal(path, mode, printer);
                                   braille.SetFocus(true);
                                   return edited;
                               }});
    const EndOfProcess end = RunSession(
        hearing.sound,
        {heard.speech, heard.sounds, events, system.files, system.clock, desktop, system.random},
        session);
    return {end, desktop.RestartWanted()};
}

}  // namespace tamlo
