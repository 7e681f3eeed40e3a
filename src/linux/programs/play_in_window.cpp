// The game in a window: lines are printed only where no voice or no card makes them heard.
#include "linux/programs/front_end.h"

#include <unistd.h>

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "game/form1.h"
#include "linux/programs/display_farewell.h"
#include "linux/system/said_lines.h"
#include "linux/system/system_desktop.h"
#include "linux/system/user_dirs.h"
#include "linux/terminal/printed_lines.h"
#include "linux/window/desktop_window.h"
#include "reading/braille_display.h"
#include "text/printable.h"

namespace tamlo {
namespace {

/// For a braille display that has not shown itself yet.
constexpr std::chrono::milliseconds longest_look{1500};

/// The text of a message box, spoken by a voice of its own, as the game's may not be set up yet.
class SpokenMessage {
  public:
    SpokenMessage(Speech& speech, std::string text)
        : engine_(speech.CreateEngine()), text_(std::move(text)) {}

    /// False if there is no voice.
    bool Say() {
        engine_->Speak("", SpeakFlags::purge);
        engine_->Speak(text_, SpeakFlags::queue);
        return engine_->GetVoicesCount() > 0;
    }

  private:
    const std::unique_ptr<SpeechEngine> engine_;
    const std::string text_;
};

}  // namespace

SessionEnd PlayInWindow(const Hearing& hearing, DesktopWindow& window, const Session& session) {
    SystemServices system;
    const auto pump = [&] { window.Pump(); };
    BrailleDisplay braille({.window = window.Number(), .press = DesktopWindow::Press});
    braille.SetFocus(false);
    window.OnFocus([&](bool focused) { braille.SetFocus(focused); });
    LinePrinter printer(STDOUT_FILENO, LinePrinter::WhenStuck::drop, pump);
    const WriteLine print = [&](const std::string& line) { printer.Print(line); };
    // Printed by the voice's thread as well, which must not take the window's events.
    LinePrinter unspoken(STDOUT_FILENO, LinePrinter::WhenStuck::drop, [] {});
    std::mutex one_at_a_time;
    const WriteLine print_unspoken = [&](const std::string& line) {
        const std::lock_guard lock(one_at_a_time);
        unspoken.Print(line);
    };
    // Without a voice a window is for nobody, unless a braille display shows its lines.
    HeardVoice voice(hearing, pump, print, print_unspoken,
                     [&] { return braille.AwaitDisplay(longest_look, pump); });
    SaidLines said(StateFolder());
    const DisplayFarewell farewell(window, voice.Service());
    Captioned heard(voice.Service(), hearing.sound, system.clock, [&](const std::string& line) {
        voice.TellFindings();
        window.ShowLine(line);
        braille.Show(line);
        said.Add(line);
        if (!voice.Audible()) printer.Print(line);
    });
    SystemDesktop desktop({.message_box =
                               [&](const std::string& text) {
                                   braille.Show(PrintableLine(text));
                                   said.Add(PrintableLine(text));
                                   SpokenMessage message(voice.Service(), text);
                                   window.MessageBox(text, [&] {
                                       if (!message.Say()) heard.Beep();
                                   });
                               },
                           .beep = [&] { heard.Beep(); },
                           .edit = EditOnDesktop});
    const EndOfProcess end = RunSession(
        hearing.sound,
        {heard.speech, heard.sounds, window, system.files, system.clock, desktop, system.random},
        session);
    return {end, desktop.RestartWanted()};
}

}  // namespace tamlo
