// The report, and the sentence about it.
#include "linux/programs/breakdown.h"

#include <cstring>
#include <ctime>

#include "audio/voice/voice_speech.h"
#include "linux/sound/sound_output.h"
#include "linux/system/user_dirs.h"
#include "linux/terminal/printed_lines.h"
#include "linux/voice/installed_voices.h"
#include "services/disk_files.h"
#include "store/data_folder.h"
#include "text/printable.h"

namespace tamlo {
namespace {

// Opening the sound and speaking take ten; a voice or a card that hangs is not waited for.
constexpr std::chrono::seconds longest_telling{15};

const std::string report_name = "tamlo report.txt";

std::string Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    char text[64];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local)};
}

/// Nothing in it is the player's: neither what they typed nor what they heard.
std::string ReportOf(const RunEnd& end) {
    return "Tamlo Delivery " TAMLO_VERSION
           " has broken down.\r\n"
           "Time: " +
           Now() + "\r\nSignal: " + std::to_string(end.signal) + ", " + ::strsignal(end.signal) +
           "\r\n" + end.notes;
}

/// Path of the report; empty if it could not be written.
std::string WriteReport(const RunEnd& end) {
    DiskFiles files;
    const DataFolder folder = FindDataFolder(files, DocumentsFolder());
    if (!folder.exists) files.MakeFolder(folder.path);
    const std::string path = folder.path + "/" + report_name;
    return files.Replace(path, ReportOf(end)) ? path : "";
}

void Print(const std::string& line) {
    LinePrinter(STDOUT_FILENO, LinePrinter::WhenStuck::drop, [] {}).Print(PrintableLine(line));
}

/// In a process of its own: what has broken the game down may lie in wait here as well.
void Speak(const std::string& text) {
    RunWatched(
        [&] {
            const InstalledVoices voices;
            SoundOutput sound("");
            sound.AwaitOpening();
            // Without a card the print has to do; nobody needs to wait.
            if (!sound.Audible()) return 0;
            VoiceSpeech voice({}, voices.Maker());
            sound.Attach(voice.Stream());
            voice.CreateEngine()->Speak(text, SpeakFlags::wait);
            sound.Detach(voice.Stream());
            return 0;
        },
        longest_telling);
}

}  // namespace

void TellBreakdown(const RunEnd& end) {
    const std::string report = WriteReport(end);
    std::string text =
        "I'm sorry, but Tamlo Delivery has broken down. What you have saved is kept. "
        "Please start the game again.";
    if (!report.empty()) text += " A report is in the file tamlo report, beside your game.";
    Print(text);
    if (!report.empty()) Print("The report: " + report);
    Speak(text);
}

}  // namespace tamlo
