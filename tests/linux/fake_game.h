// A little game for the tests of the rehearsal itself: the waits and calls that a game is made
// of, each in a line.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "faults/faulty_files.h"
#include "performance.h"
#include "rehearsal/rehearsal.h"
#include "rehearsal/words.h"
#include "services/clock.h"
#include "services/desktop.h"
#include "services/end_of_process.h"
#include "services/events.h"
#include "services/platform.h"
#include "services/random.h"
#include "services/sound.h"
#include "services/speech.h"
#include "temporary_folder.h"
#include "wave_maker.h"

namespace tamlo {

class FakeGame final : private KeyListener {
  public:
    FakeGame(const Platform& services, bool patient) : platform(services), patient_(patient) {
        voice = platform.speech.CreateEngine();
        system = platform.sound.CreateDevice();
    }

    const Platform platform;
    std::unique_ptr<SpeechEngine> voice;
    std::unique_ptr<SoundDevice> system;
    std::unique_ptr<SoundBuffer> sound;
    std::map<std::string, std::string, std::less<>> fields{{"cash", "0"}, {"plast", "1"}};
    int key = 0;  ///< the last pressed, 0 when it has been dealt with

    void Say(std::string_view text) { voice->Speak(text, SpeakFlags::wait); }
    void Queue(std::string_view text) { voice->Speak(text, SpeakFlags::queue); }
    void Hush() { voice->Speak("", SpeakFlags::purge); }
    void Turn(double rest = 0) { platform.events.Turn(*this, patient_ ? rest : 0); }

    int WaitForKey() {
        key = 0;
        while (key == 0) Turn(until_event);
        return key;
    }
    void WaitForSpeech() {
        while (key == 0 && voice->Status() == RunningState::speaking) Turn(voice->SecondsLeft());
    }
    void WaitForSound() {
        while (key == 0 && sound->GetStatus() == status_playing) Turn(sound->SecondsLeft());
    }
    void Wait(double seconds) {
        const auto start = platform.clock.Steady();
        const auto Passed = [&] {
            return std::chrono::duration<double>(platform.clock.Steady() - start).count();
        };
        do Turn(seconds - Passed());
        while (Passed() <= seconds);
    }
    void Load(std::string_view name) { sound = system->CreateBufferFromFile(name, {224}); }

  private:
    void Form_KeyDown(int code, int) override { key = code; }

    bool patient_;  ///< lets a turn last; otherwise takes the turns one by one
};

using Play = std::function<void(FakeGame&)>;

/// What a field of the little game may be.
inline FieldChecks FakeFieldChecks() {
    const auto WhyNot = [](std::string_view field) -> std::string {
        return field == "cash" || field == "plast" ? "" : "no field " + std::string(field);
    };
    return {[=](std::string_view field, std::string_view value) {
                return value == "lots" ? "not a number" : WhyNot(field);
            },
            WhyNot};
}

/// Rehearses the play with the script. There are the sounds "tune" (1 s at 8000), "bell" (0.5 s
/// at 22050) and "click" (1 frame).
inline Performance Rehearse(std::string_view script_text, const Play& play, bool patient = true) {
    static const TemporaryFolder sounds;
    if (!sounds.Has("tune.wav")) {
        sounds.Write("tune.wav", SilentWave(8000, 8000));
        sounds.Write("bell.wav", SilentWave(22050, 11025));
        sounds.Write("click.wav", SilentWave(22050, 1));
    }
    auto script = ReadScript(script_text, FakeFieldChecks());
    if (const auto* error = std::get_if<ScriptError>(&script)) {
        throw std::runtime_error("line " + std::to_string(error->line) + ": " + error->what);
    }
    Performance performance;
    FaultyFiles files("", FaultKind::stuck, 0, "");
    {
        Rehearsal rehearsal(std::get<Script>(std::move(script)),
                            {"/home/me/Documents", sounds.Path(), sounds.Path()}, files,
                            [&](std::string_view lines) { performance.trace += lines; });
        FakeGame game(rehearsal.Services(), patient);
        const FieldAccess fields{[&](std::string_view field, std::string_view value) {
                                     game.fields[std::string(field)] = value;
                                 },
                                 [&](std::string_view field) {
                                     return std::string(field) + '=' +
                                            game.fields.find(field)->second;
                                 }};
        const auto result = rehearsal.Run([&] { play(game); }, fields);
        performance.exit_status = result.exit_status;
        performance.message = result.message;
    }
    performance.lines = TraceLines(performance.trace);
    return performance;
}

}  // namespace tamlo
