// Which front end the game gets, and what its process leaves to do when it has ended.
#include "linux/programs/machine.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include "linux/programs/breakdown.h"
#include "linux/programs/front_end.h"
#include "linux/system/programs.h"
#include "linux/system/watched_run.h"
#include "linux/terminal/terminal_mode.h"
#include "linux/window/desktop_window.h"
#include "services/stray_signals.h"

namespace tamlo {
namespace {

SessionEnd PlayWherePossible(const Hearing& hearing, const Session& session,
                             const OnFrontEnd& on_front_end) {
    const auto begin = [&](FrontEndInfo::Kind front) {
        hearing.sound.AwaitOpening();
        if (on_front_end) on_front_end({front, hearing.sound, hearing.voices});
    };
    std::string why_no_window;
    if (const auto window = DesktopWindow::Open(why_no_window)) {
        begin(FrontEndInfo::Kind::window);
        return PlayInWindow(hearing, *window, session);
    }
    if (::isatty(STDIN_FILENO) != 0) {
        begin(FrontEndInfo::Kind::terminal);
        return PlayInTerminal(hearing, session);
    }
    begin(FrontEndInfo::Kind::pipe);
    return PlayFromPipe(hearing, session);
}

/// The game has ended and is only put away. Who asks for the end once more must not break that off.
void IgnoreEndSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_IGN);
}

/// The sound is opened before anything that takes time, and a window meanwhile, so that it is awake
/// when the first word comes.
SessionEnd Play(const std::string& sounds, const Session& session, const OnFrontEnd& on_front_end) {
    const InstalledVoices voices;  // before there are threads
    DesktopWindow::Prepare();
    SoundOutput sound(sounds);
    SessionEnd ending = PlayWherePossible({sound, voices}, session, on_front_end);
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

/// The result of a game that wants to be restarted: a number that no other end has.
constexpr int restart_wanted = 83;

int PlayToTheEnd(const std::string& sounds, const Session& session,
                 const OnFrontEnd& on_front_end) {
    EndOfProcess end;
    try {
        const SessionEnd ending = Play(sounds, session, on_front_end);
        if (ending.restart) return restart_wanted;
        end = ending.end;
    } catch (const EndOfProcess& on_the_way) {
        end = on_the_way;
    }
    if (!end.reason.empty()) PrintLine(end.reason);
    return end.exit_status;
}

}  // namespace

int RunOnThisMachine(const std::string& sounds, const Session& session,
                     const OnFrontEnd& on_front_end) {
    OpenStandardStreams();
    IgnoreStraySignals();
    const TerminalSettings terminal(STDIN_FILENO);
    const RunEnd end = RunWatched([&] { return PlayToTheEnd(sounds, session, on_front_end); });
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
