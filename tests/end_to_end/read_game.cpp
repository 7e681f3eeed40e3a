// The game for a player who reads: in virtual time, its lines on standard output. After each line
// it waits for the player's answer on standard input: keys as a terminal sends them, or none, and
// then a zero byte. They are pressed a tenth of a second later.
//
//   read_game SOUNDS DOCUMENTS SEED
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <optional>

#include "app/sounds/sound_meanings.h"
#include "game/form1.h"
#include "linux/terminal/terminal_keys.h"
#include "reading/captioned_sound.h"
#include "reading/captioned_speech.h"
#include "rehearsal/rehearsal.h"
#include "services/clock.h"
#include "services/disk_files.h"
#include "services/end_of_process.h"

namespace tamlo {
namespace {

constexpr std::chrono::microseconds reaction{100000};

/// The player's answers, as keys in the turns in which they are due.
class ReaderEvents final : public Events {
  public:
    ReaderEvents(Events& real, const Clock& clock) : real_(real), clock_(clock) {}

    void Ask(const std::string& line) {
        std::puts(line.c_str());
        std::fflush(stdout);
        std::string answer;
        for (char byte = 0; ::read(STDIN_FILENO, &byte, 1) == 1 && byte != 0;) answer += byte;
        if (answer.empty()) return;
        keys_.Feed(answer, clock_.Steady());
        due_ = clock_.Steady() + reaction;
    }

    void ShowWindow(const char* caption) override { real_.ShowWindow(caption); }
    void Turn(KeyListener& listener, double rest) override {
        const std::chrono::duration<double> left = due_ - clock_.Steady();
        const bool waiting = keys_.Waiting();
        real_.Turn(listener, waiting ? std::min(rest, std::max(left.count(), 0.0)) : rest);
        if (clock_.Steady() < due_) return;
        if (const auto key = keys_.Take()) listener.Form_KeyDown(*key, 0);
    }

  private:
    Events& real_;
    const Clock& clock_;
    TerminalKeys keys_{Gaps::kept};
    std::chrono::microseconds due_{};
};

int Run(const std::string& sounds, const std::string& documents, int seed) {
    DiskFiles disk;
    Script script;
    script.time.minute = seed % 60;  // what chance is seeded with
    Rehearsal rehearsal(script, {documents, sounds, sounds}, disk, [](std::string_view) {});
    const Platform services = rehearsal.Services();
    ReaderEvents events(services.events, services.clock);
    const auto ask = [&](const std::string& line) { events.Ask(line); };
    Captions captions(MeaningOfSound, services.clock, ask);
    CaptionedSpeech speech(services.speech, ask);
    CaptionedSound sound(services.sound, captions);
    Form1 game(
        {speech, sound, events, services.files, services.clock, services.desktop, services.random});
    return rehearsal.Run([&game] { game.Form_Load(); }, {}).exit_status;
}

}  // namespace
}  // namespace tamlo

int main(int count, char** arguments) {
    if (count != 4) return 2;
    return tamlo::Run(arguments[1], arguments[2], std::atoi(arguments[3]));
}
