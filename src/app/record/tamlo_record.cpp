// tamlo-record: plays a script on the real game in virtual time, with the real voice and the real
// mixer, and writes what a player would hear as a sound file, with its lines beside it.
#include <cctype>
#include <charconv>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/rehearse/script_run.h"
#include "app/sounds/sound_meanings.h"
#include "game/form1.h"
#include "reading/captioned_speech.h"
#include "recording/recording.h"
#include "services/disk_files.h"
#include "services/random.h"
#include "services/stray_signals.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

constexpr const char* usage =
    "usage: tamlo-record [--documents DIR] [--sounds DIR] [--cwd DIR] [--voice N] [--rate N] "
    "[--stems] SCRIPT OUT.flac|OUT.wav";

struct Arguments {
    ScriptArguments script;
    RecordingFiles files;
    RecordingChoices choices;
};

/// A whole number in [low, high]. Throws WrongUse.
int Number(const std::string& option, const std::string& text, int low, int high) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < low || number > high) {
        throw WrongUse(option + " needs a number from " + std::to_string(low) + " to " +
                       std::to_string(high));
    }
    return number;
}

Arguments ReadArguments(const std::vector<std::string>& words) {
    Arguments arguments;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        std::optional<std::string>* const folder = FolderOption(arguments.script, word);
        const bool wants_value = folder != nullptr || word == "--voice" || word == "--rate";
        if (wants_value && ++i == words.size()) throw WrongUse(word + " needs a value");
        if (folder != nullptr)
            *folder = words[i];
        else if (word == "--voice")
            arguments.choices.voice = Number(word, words[i], 1, 99) - 1;
        else if (word == "--rate")
            arguments.choices.rate = Number(word, words[i], -10, 10);
        else if (word == "--stems")
            arguments.files.stems = true;
        else if (word.starts_with("-") && word != "-")
            throw WrongUse(usage);
        else
            names.push_back(word);
    }
    if (names.size() != 2) throw WrongUse(usage);
    arguments.script.script = names[0];
    arguments.files.path = names[1];
    return arguments;
}

/// Remembers what chance gave.
class NotedRandom final : public Random {
  public:
    explicit NotedRandom(Random& real) : real_(real) {}
    void Seed(double number) override { real_.Seed(number); }
    double Next() override { return draws.emplace_back(real_.Next()); }

    std::vector<double> draws;

  private:
    Random& real_;
};

/// The data folder of the game as a rehearsal finds it, so that it can be played twice.
void CopyDataFolder(const std::string& from, const std::string& to) {
    for (const auto& entry : fs::directory_iterator(from)) {
        std::string name = entry.path().filename().string();
        for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (name == "tolvane")
            fs::copy(entry.path(), fs::path(to) / entry.path().filename(),
                     fs::copy_options::recursive);
    }
}

struct Rehearsed {
    std::vector<double> draws;
    std::vector<std::string> lines;
};

/// Plays the script without sound first. A text takes its time in a recording, so the clock, from
/// which the game takes its chance, shows other times: the recording gets the draws of the
/// rehearsal.
Rehearsed Rehearse(Script script, RehearsalFolders folders, Files& disk) {
    const FreshFolder copy;
    if (!folders.documents.empty()) {
        CopyDataFolder(folders.documents, copy.Path());
        folders.documents = copy.Path();
    }
    Rehearsal rehearsal(std::move(script), std::move(folders), disk, [](std::string_view) {});
    Platform services = rehearsal.Services();
    NotedRandom random(services.random);
    Rehearsed result;
    CaptionedSpeech speech(services.speech,
                           [&](const std::string& line) { result.lines.push_back(line); });
    Form1 game({speech, services.sound, services.events, services.files, services.clock,
                services.desktop, random});
    rehearsal.Run([&game] { game.Form_Load(); }, FieldsOf(game));
    result.draws = std::move(random.draws);
    return result;
}

/// Tells where the recording left the rehearsal, as keys pressed by the clock can make it.
void Compare(const std::vector<std::string>& rehearsed, const std::vector<std::string>& recorded) {
    const std::size_t both = std::min(rehearsed.size(), recorded.size());
    for (std::size_t i = 0; i <= both; ++i) {
        if (i == both && rehearsed.size() == recorded.size()) return;
        if (i < both && rehearsed[i] == recorded[i]) continue;
        std::cerr << "tamlo-record: from line " << i + 1
                  << " on the recording is another trip than "
                  << "the rehearsal";
        if (i < recorded.size()) std::cerr << ": \"" << recorded[i] << "\"";
        std::cerr << "\n";
        return;
    }
}

int Record(const Arguments& arguments) {
    const Script script = ReadScriptFile(arguments.script.script);
    std::optional<FreshFolder> fresh;
    const RehearsalFolders folders = FindFolders(arguments.script, fresh);
    DiskFiles disk;
    Rehearsed rehearsed = Rehearse(script, folders, disk);
    Rehearsal rehearsal(script, folders, disk, [](std::string_view) {});
    Recording recording(rehearsal, arguments.files, folders.sounds, MakeVoices(), arguments.choices,
                        MeaningOfSound, std::move(rehearsed.draws));
    const Platform services = recording.Services();
    std::vector<std::string> lines;
    CaptionedSpeech speech(services.speech,
                           [&](const std::string& line) { lines.push_back(line); });
    Form1 game({speech, services.sound, services.events, services.files, services.clock,
                services.desktop, services.random});
    const RehearsalResult result = recording.Run([&game] { game.Form_Load(); }, FieldsOf(game));
    if (!result.message.empty()) std::cerr << "tamlo-record: " << result.message << "\n";
    Compare(rehearsed.lines, lines);
    return result.exit_status;
}

}  // namespace
}  // namespace tamlo

int main(int argc, char** argv) {
    // A reader that has seen enough must not keep the temporary folder from being removed.
    tamlo::IgnoreStraySignals();
    try {
        if (argc == 2 && std::string_view(argv[1]) == "--help")
            return std::puts(tamlo::usage) < 0 ? tamlo::wrong_use : 0;
        return tamlo::Record(tamlo::ReadArguments({argv + 1, argv + argc}));
    } catch (const std::exception& wrong) {
        std::cerr << "tamlo-record: " << wrong.what() << "\n";
    }
    return tamlo::wrong_use;
}
