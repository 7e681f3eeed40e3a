#include "linux/programs/machine.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "app/sounds/sound_meanings.h"
#include "audio/voice/voice_speech.h"
#include "game/form1.h"
#include "linux/pipe/observed.h"
#include "linux/pipe/piped_events.h"
#include "linux/programs/breakdown.h"
#include "linux/programs/display_farewell.h"
#include "linux/sound/sound_output.h"
#include "linux/system/disk_files.h"
#include "linux/system/programs.h"
#include "linux/system/system_clock.h"
#include "linux/system/system_desktop.h"
#include "linux/system/system_random.h"
#include "linux/system/watched_run.h"
#include "linux/terminal/terminal_events.h"
#include "linux/terminal/terminal_front_end.h"
#include "linux/window/desktop_window.h"
#include "reading/braille_display.h"
#include "reading/captioned_sound.h"
#include "reading/captioned_speech.h"
#include "services/end_of_process.h"
#include "text/printable.h"

namespace tamlo {
namespace {

/// How a run of the game ended.
struct Ending {
    EndOfProcess end;
    bool restart = false;
};

/// What every place has in common.
struct Machine {
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
               WriteLine unspoken = {})
        : sound_(sound),
          explain_(std::move(explain)),
          unspoken_(std::move(unspoken)),
          speech_({.patience = std::move(patience),
                   .unspoken = [this](std::string_view text) { Show(text); },
                   .silent = [this] { ExplainSilence(); }}) {
        sound_.Attach(speech_.Stream());
    }
    HeardVoice(const HeardVoice&) = delete;
    HeardVoice& operator=(const HeardVoice&) = delete;
    ~HeardVoice() { sound_.Detach(speech_.Stream()); }

    Speech& Service() { return speech_; }
    /// Whether there are a voice and a card.
    bool Audible() const { return sound_.Audible() && !silent_; }

  private:
    void Show(std::string_view text) {
        if (unspoken_ && Audible()) unspoken_(PrintableLine(text));
    }
    void ExplainSilence() {
        silent_ = true;
        explain_("Nothing is spoken: no voice could be made ready.");
        explain_("The packages libespeak-ng1 and espeak-ng-data are needed.");
    }

    SoundOutput& sound_;
    WriteLine explain_;
    WriteLine unspoken_;
    bool silent_ = false;
    VoiceSpeech speech_;
};

/// The voice and the sound, written as lines as well as heard.
struct Captioned {
    Captioned(Speech& voice, SoundOutput& sound, const Clock& clock, const WriteLine& write)
        : output(sound),
          captions(MeaningOfSound, clock, write),
          speech(voice, write),
          sounds(sound.Sound(), captions) {}

    void Beep() {
        output.Beep();
        captions.Beeped();
    }

    SoundOutput& output;
    Captions captions;
    CaptionedSpeech speech;
    CaptionedSound sounds;
};

EndOfProcess RunGame(const Platform& platform, const Story& story) {
    try {
        Form1 game(platform);
        story(game);
    } catch (const EndOfProcess& end) {
        return end;
    }
    return {};
}

/// Lines are printed only where no voice or no card makes them heard.
Ending PlayInWindow(SoundOutput& sound, DesktopWindow& window, const Story& story) {
    Machine machine;
    const auto pump = [&] { window.Pump(); };
    BrailleDisplay braille({.window = window.Number(), .press = DesktopWindow::Press});
    braille.SetFocus(false);
    window.OnFocus([&](bool focused) { braille.SetFocus(focused); });
    LinePrinter printer(STDOUT_FILENO, LinePrinter::WhenStuck::drop, pump);
    const WriteLine print = [&](const std::string& line) { printer.Print(line); };
    HeardVoice voice(sound, pump, print, print);
    const DisplayFarewell farewell(window, voice.Service());
    Captioned heard(voice.Service(), sound, machine.clock, [&](const std::string& line) {
        window.ShowLine(line);
        braille.Show(line);
        if (!voice.Audible()) printer.Print(line);
    });
    SystemDesktop desktop({.message_box =
                               [&](const std::string& text) {
                                   braille.Show(PrintableLine(text));
                                   window.MessageBox(text);
                               },
                           .beep = [&] { heard.Beep(); },
                           .edit = EditOnDesktop});
    const EndOfProcess end = RunGame(
        {heard.speech, heard.sounds, window, machine.files, machine.clock, desktop, machine.random},
        story);
    return {end, desktop.RestartWanted()};
}

/// On a screen that can't move its cursor back, and in a file, lines are printed plainly.
LinePrinter::Cursor CursorWanted() {
    const char* const type = std::getenv("TERM");
    const bool plain = type == nullptr || std::string_view(type) == "dumb";
    return ::isatty(STDOUT_FILENO) != 0 && !plain ? LinePrinter::Cursor::at_line
                                                  : LinePrinter::Cursor::below;
}

Ending PlayInTerminal(SoundOutput& sound, const Story& story) {
    Machine machine;
    SignalWatch signals;
    TerminalMode mode(STDIN_FILENO);
    KeyInput keys(STDIN_FILENO, Gaps::kept, machine.clock, signals);
    TerminalEvents events(keys, mode, signals);
    const auto pump = [&] { events.Pump(); };
    BrailleDisplay braille({.window = {}, .press = [&](int code) { keys.Press(code); }});
    LinePrinter printer(STDOUT_FILENO, LinePrinter::WhenStuck::drop, pump, CursorWanted());
    HeardVoice voice(sound, pump, [&](const std::string& line) { printer.Print(line); });
    events.OnStop([&](bool stopped) {
        if (stopped) printer.LeaveLine();
        stopped ? braille.GiveBack() : braille.SetFocus(true);
    });
    Captioned heard(voice.Service(), sound, machine.clock, [&](const std::string& line) {
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
    const EndOfProcess end = RunGame(
        {heard.speech, heard.sounds, events, machine.files, machine.clock, desktop, machine.random},
        story);
    return {end, desktop.RestartWanted()};
}

Ending PlayFromPipe(SoundOutput& sound, const Story& story) {
    Machine machine;
    SignalWatch signals;
    KeyInput keys(STDIN_FILENO, Gaps::lost, machine.clock, signals);
    Activity activity(machine.clock);
    PipedEvents events(keys, activity, signals, machine.clock);
    const auto pump = [&] { events.Pump(); };
    LinePrinter printer(STDOUT_FILENO, LinePrinter::WhenStuck::wait, pump);
    const WriteLine print = [&](const std::string& line) { printer.Print(line); };
    HeardVoice voice(sound, pump, print);
    Captioned heard(voice.Service(), sound, machine.clock, print);
    SystemDesktop desktop(
        {.message_box = [&](const std::string& text) { ShowMessage(text, events, printer); },
         .beep = [&] { heard.Beep(); },
         .edit = [](const std::string&) { return false; }});

    ObservedSpeech speech(heard.speech, activity);
    ObservedSound sounds(heard.sounds, activity);
    ObservedFiles files(machine.files, activity);
    ObservedDesktop watched_desktop(desktop, activity);
    ObservedRandom random(machine.random, activity);
    const EndOfProcess end =
        RunGame({speech, sounds, events, files, machine.clock, watched_desktop, random}, story);
    return {end, desktop.RestartWanted()};
}

Ending PlayWherePossible(SoundOutput& sound, const Story& story, const Introduction& introduction) {
    const auto begin = [&](Place::Front front) {
        sound.AwaitOpening();
        if (introduction) introduction({front, sound});
    };
    std::string why_no_window;
    if (const auto window = DesktopWindow::Open(why_no_window)) {
        begin(Place::Front::window);
        return PlayInWindow(sound, *window, story);
    }
    if (::isatty(STDIN_FILENO) != 0) {
        begin(Place::Front::terminal);
        return PlayInTerminal(sound, story);
    }
    begin(Place::Front::pipe);
    return PlayFromPipe(sound, story);
}

/// The game has ended and is only put away. Who asks for the end once more must not break that off.
void IgnoreEndSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_IGN);
}

/// The sound is opened before anything that takes time, and a window meanwhile, so that it is awake
/// when the first word comes.
Ending Play(const std::string& sounds, const Story& story, const Introduction& introduction) {
    DesktopWindow::Prepare();
    SoundOutput sound(sounds);
    const Ending ending = PlayWherePossible(sound, story, introduction);
    if (!ending.restart) IgnoreEndSignals();
    return ending;
}

void PrintLine(const std::string& line) {
    const std::string printed = line + '\n';
    const auto size = static_cast<ssize_t>(printed.size());
    if (::write(STDOUT_FILENO, printed.data(), printed.size()) == size) return;
    [[maybe_unused]] const ssize_t told = ::write(STDERR_FILENO, printed.data(), printed.size());
}

/// Descriptors that are closed would be given to the first file or device that is opened, and
/// take its bytes for keys, or spoil it with print.
void OpenStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) != stream) std::abort();
    }
}

/// The result of a game that wants to be started anew: a number that no other end has.
constexpr int restart_wanted = 83;

int PlayToTheEnd(const std::string& sounds, const Story& story, const Introduction& introduction) {
    EndOfProcess end;
    try {
        const Ending ending = Play(sounds, story, introduction);
        if (ending.restart) return restart_wanted;
        end = ending.end;
    } catch (const EndOfProcess& on_the_way) {
        end = on_the_way;
    }
    if (!end.reason.empty()) PrintLine(end.reason);
    return end.exit_status;
}

}  // namespace

int RunOnThisMachine(const std::string& sounds, const Story& story,
                     const Introduction& introduction) {
    OpenStandardStreams();
    // A reader of our print that goes away is no reason to fall silent.
    std::signal(SIGPIPE, SIG_IGN);
    const TerminalSettings terminal(STDIN_FILENO);
    const RunEnd end = RunWatched([&] { return PlayToTheEnd(sounds, story, introduction); });
    if (end.signal != 0) {
        terminal.Restore();
        if (!AsksToEnd(end.signal)) TellBreakdown(end);
        terminal.RestoreAndFlush();  // keys that were pressed at the dead game are not the shell's
        return 128 + end.signal;
    }
    if (end.status != restart_wanted) return end.status;
    RestartProgram();
    PrintLine("The game could not be started anew.");
    return 1;
}

}  // namespace tamlo
