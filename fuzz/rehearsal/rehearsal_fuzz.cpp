// Any keys at any moments, and any bytes in a file of the player's, through the whole game: it
// comes to rest or to its end, and on the way there holds what must always hold.
//
// The input is a text: a character that says which file there is at the start, then one for each
// step of the script, and after a '|' the bytes of that file.
#include <array>
#include <string>
#include <variant>

#include "fuzzing.h"
#include "game/form1.h"
#include "game/game_fields.h"
#include "monkeys/witness.h"
#include "rehearsal/rehearsal.h"
#include "services/disk_files.h"
#include "store/saved_game.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

constexpr std::array named_keys = {
    std::pair{'e', "enter"},  std::pair{'u', "up"},        std::pair{'d', "down"},
    std::pair{'l', "left"},   std::pair{'r', "right"},     std::pair{'s', "space"},
    std::pair{'x', "escape"}, std::pair{'b', "backspace"}, std::pair{'^', "shift"},
    std::pair{'A', "f1"},     std::pair{'B', "f2"},        std::pair{'C', "f3"},
    std::pair{'D', "f4"},     std::pair{'E', "f5"},        std::pair{'F', "f6"},
};

constexpr std::array texts = {" start game ",     " deliver tamlo ", "How fast",    "turn left",
                              " select ",         "You are at",      "Is ",         "That will be",
                              " game saved ",     "The officer",     " return to ", "order for",
                              " exiting program "};
constexpr std::array sounds = {"tamlo1", "tamlo2", "tamlo21", "tamlo24", "tamlo25", "tamlo34"};

class Reader {
  public:
    explicit Reader(std::string_view input) : input_(input) {}

    bool AtEnd() const { return input_.empty(); }
    /// The next byte; 0 after the last.
    unsigned Take() { return TakeValue<std::uint8_t>(input_); }

    std::string Key() {
        const unsigned byte = Take();
        for (const auto& [character, name] : named_keys) {
            if (byte == static_cast<unsigned char>(character)) return name;
        }
        if (byte >= '0' && byte <= '9') return std::string(1, static_cast<char>(byte));
        return std::to_string(10 + byte % 246);
    }

    /// One step of a script.
    std::string Line() {
        if (input_.front() == 'a') return After();
        if (input_.front() == 't') return "upon \"" + OneOf(texts) + "\" " + Key() + "\n";
        if (input_.front() == 'n') return "upon sound " + OneOf(sounds) + " " + Key() + "\n";
        if (input_.front() == 'w') return Draw();
        return "press " + Key() + "\n";
    }

  private:
    /// A key soon after the one before, a second to half a minute.
    std::string After() {
        Take();
        const unsigned byte = Take();
        const std::string ticks = std::to_string(100 + byte * byte / 20);
        const std::size_t seconds = ticks.size() - 2;
        return "after " + ticks.substr(0, seconds) + "." + ticks.substr(seconds) + " " + Key() +
               "\n";
    }

    std::string Draw() {
        Take();
        return "draw " + std::to_string(static_cast<double>(Take()) / 256) + "\n";
    }

    template <std::size_t n>
    std::string OneOf(const std::array<const char*, n>& words) {
        Take();
        return words[Take() % n];
    }

    std::string_view input_;
};

/// The player's file that the run begins with; no name for none.
std::string FileOf(char kind) {
    switch (kind) {
        case 'G': return "tamlo.sav";
        case 'C': return "tamlo.cfg";
        case 'R': return "tamlo.rec";
        case 'S': return "tamlostreets.txt";
        case 'A': return "tamlostreetsA.txt";
        case 'L': return "tamlolog.txt";
        default: return "";
    }
}

/// Has the files ready; whether all of them are the game's own.
bool Prepare(const TemporaryFolder& documents, char kind, std::string_view bytes) {
    if (kind == '1') {
        documents.Write("tolvane/tamlo.sav", EncodeSavedGame({1990, 3, 20, 59, 1, 700}));
    }
    const std::string file = FileOf(kind);
    if (!file.empty()) documents.Write("tolvane/" + file, bytes);
    return file.empty();
}

Script ScriptOf(std::string_view steps, unsigned voices) {
    std::string text = "voices " + std::to_string(voices) + "\n";
    for (Reader reader(steps); !reader.AtEnd();) text += reader.Line();
    auto read = ReadScript(text, {WhyNotSet, WhyNotShow});
    Check(std::holds_alternative<Script>(read));
    return std::get<Script>(std::move(read));
}

void Play(Script script, const TemporaryFolder& documents) {
    constexpr std::size_t longest_trace = 8 * 1024 * 1024;  // what no few keys can lead to
    std::string trace;
    DiskFiles disk;
    Rehearsal rehearsal(std::move(script), {documents.Path(), TAMLO_SOUNDS, TAMLO_SOUNDS}, disk,
                        [&](std::string_view lines) {
                            trace += lines;
                            Check(trace.size() < longest_trace);
                        });
    const Platform services = rehearsal.Services();
    WitnessedEvents events(services.events);
    Form1 game({services.speech, services.sound, events, services.files, services.clock,
                services.desktop, services.random});
    events.Watch(game.gs);
    const FieldAccess none{[](std::string_view, std::string_view) {},
                           [](std::string_view) { return std::string(); }};
    const RehearsalResult result = rehearsal.Run([&game] { game.Form_Load(); }, none);
    // What a step waits for may never come; anything else ends in one of two ways.
    if (result.exit_status == 1) return;
    Check(trace.ends_with(" rest\n") || trace.ends_with(" end\n"));
}

}  // namespace
}  // namespace tamlo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    const std::string_view input = TextOf(bytes, size);
    if (input.empty()) return 0;
    const std::size_t bar = std::min(input.find('|'), size);
    const TemporaryFolder documents;
    const bool own = Prepare(documents, input.front(), input.substr(std::min(bar + 1, size)));
    Play(ScriptOf(input.substr(1, bar - 1), bar % 4), documents);
    // A game without a voice ends before it has any file.
    if (own && documents.Has("tolvane/tamlolog.txt")) LookAtFiles(documents);
    return 0;
}
