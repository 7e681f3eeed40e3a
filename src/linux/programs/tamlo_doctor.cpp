// tamlo-doctor: checks speech and sound, and writes a report.
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdio>

#include "app/arguments.h"
#include "app/doctor/doctor.h"
#include "app/sounds_folder.h"
#include "audio/voice/voices.h"
#include "game/form1.h"
#include "linux/programs/machine.h"
#include "linux/sound/sound_output.h"
#include "linux/system/user_dirs.h"
#include "linux/voice/installed_voices.h"
#include "reading/braille_display.h"
#include "services/end_of_process.h"

namespace tamlo {
namespace {

constexpr const char* window = "a window";

const char* NameOf(FrontEndInfo::Kind kind) {
    switch (kind) {
        case FrontEndInfo::Kind::window: return window;
        case FrontEndInfo::Kind::terminal: return "a terminal";
        default: return "a pipe";
    }
}

SoundState StateOf(const SoundOutput& sound) {
    const CardReport card = sound.Card();
    return {card.driver, card.frames, card.late, sound.Audible(), sound.Frames()};
}

std::vector<std::string> VoiceNames() {
    std::vector<std::string> names;
    names.reserve(voice_table.size() + flite_voices.size());
    for (const VoiceEntry& voice : voice_table) names.emplace_back(voice.person);
    for (const FliteVoice& voice : flite_voices) names.emplace_back(voice.person);
    return names;
}

std::vector<VoiceFault> VoiceFaults(const InstalledVoices& voices) {
    using State = FamilyReport::State;
    std::vector<VoiceFault> faults;
    for (const FamilyReport& report : voices.Reports()) {
        const bool first = report.name == "espeak-ng";
        const bool broken = report.state >= State::crashed;
        // The other family is a choice of the player's.
        if (!broken && !(first && report.state == State::missing)) continue;
        faults.push_back({report.name, !broken, first ? "espeak-ng-data" : "libflite1"});
    }
    return faults;
}

/// Less than a saved game needs.
bool DiskIsFull(const std::string& folder) {
    struct statvfs disk = {};
    return ::statvfs(folder.c_str(), &disk) == 0 && disk.f_bavail * disk.f_frsize < 65536;
}

int Run() {
    const std::string sounds = SoundsFolder();
    // The game looks for its sounds in the current directory.
    if (::chdir(sounds.c_str()) != 0) std::perror(sounds.c_str());
    Surroundings around{
        .front = {},
        .sound = {},
        .voices = VoiceNames(),
        .facts = SystemFacts(),
        .readers = ScreenReaders("/proc", "/var/lib/dpkg/status", BrailleLibraryInstalled()),
        .reports = StateFolder(),
        .home = HomeFolder()};
    WrittenReport report;
    const auto check = [&](Form1& form) {
        try {
            CheckSpeechAndSound(form, around, report);
        } catch (const EndOfProcess&) {
            // Elsewhere everything has been printed as it was said.
            if (around.front == window) std::fputs(report.text.c_str(), stdout);
            std::fflush(stdout);
            throw;
        }
    };
    return RunOnThisMachine(sounds, check, [&](const FrontEndInfo& info) {
        around.front = NameOf(info.kind);
        around.answers = info.kind != FrontEndInfo::Kind::pipe;
        around.voice_faults = [&voices = info.voices] { return VoiceFaults(voices); };
        around.disk_is_full = DiskIsFull;
        around.sound = [&sound = info.sound] { return StateOf(sound); };
    });
}

}  // namespace
}  // namespace tamlo

int main(int argc, char** argv) {
    const auto answered =
        tamlo::AnswerArguments(argc, argv, "tamlo-doctor", "check speech and sound");
    if (answered) return *answered;
    return tamlo::Run();
}
