#include "monkeys/life.h"

#include <filesystem>
#include <variant>

#include "game/form1.h"
#include "game/game_fields.h"
#include "listening_speech.h"
#include "monkeys/witness.h"
#include "rehearsal/rehearsal.h"
#include "services/disk_files.h"
#include "services/key_codes.h"
#include "store/record_file.h"
#include "store/saved_game.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

std::string Line(const Stroke& stroke) {
    // The one key below 10, which a script has to name.
    const std::string key =
        stroke.key == keys::backspace ? "backspace" : std::to_string(stroke.key);
    if (stroke.after == 0) return "press " + key + "\n";
    const std::string ticks = std::to_string(stroke.after + ticks_per_second);
    return "after " + std::to_string(stroke.after / ticks_per_second) + "." +
           ticks.substr(ticks.size() - 2) + " " + key + "\n";
}

Step StepOf(const Stroke& stroke) {
    const Step::Kind kind = stroke.after == 0 ? Step::Kind::press : Step::Kind::after;
    return Step{.kind = kind, .key = stroke.key, .delay = stroke.after};
}

void CopyFolder(const std::string& from, const std::string& to) {
    fs::remove_all(to);
    fs::copy(from, to, fs::copy_options::recursive);
}

/// Runs the game to its end.
RehearsalResult RunGame(Rehearsal& rehearsal, Form1& game) {
    const FieldAccess fields{[&game](std::string_view field, std::string_view value) {
                                 SetField(game.gs, field, value);
                             },
                             [&game](std::string_view field) { return ShowField(game.gs, field); }};
    return rehearsal.Run([&game] { game.Form_Load(); }, fields);
}

}  // namespace

struct Life::Play {
    std::string script;
    std::string trace;
    std::int64_t texts = 0;         ///< spoken or queued so far
    std::int64_t texts_before = 0;  ///< when the last keys were given
    bool silent_keys = false;       ///< all of those may have said nothing
};

Life::Life(LifePlan plan, Reached& reached)
    : plan_(std::move(plan)), reached_(reached), monkey_(plan_.seed) {
    Inherit();
}

/// Most lives begin with a career that has come far, since few would ever get there.
void Life::Inherit() {
    const SavedGame careers[] = {
        {92, 1, 0, 58, 30, 20},       {480, 2, 12, 5, 0, 70},    {1975, 3, 36, 40, 12.5, 800},
        {1960, 3, 31, 0, 59.5, 1200}, {1990, 3, 20, 59, 1, 700}, {1999.5, 3, 99, 1, 0, 999},
        {1970, 3, 150, 0, 0, 9999},   {1995, 3, 9, 0, 59, 500},
    };
    const std::uint64_t kind = plan_.seed % (std::size(careers) + 1);
    if (kind < std::size(careers)) {
        documents_.Write("tolvane/tamlo.sav", EncodeSavedGame(careers[kind]));
    }
    const Record slow{200, 0, 0, "Ann", {2010, 1, 2}};
    const Record quick{1, 0, 0, "Bob", {2010, 1, 2}};
    if (plan_.seed % 3 != 0) {
        documents_.Write("tolvane/tamlo.rec", EncodeRecord(plan_.seed % 3 == 1 ? slow : quick));
    }
    if (plan_.seed % 2 == 0) documents_.Write("tolvane/tamlostreetsA.txt", "One\r\nTwo\r\n");
}

std::optional<Fault> Life::Live() {
    while (monkey_.Keys() < plan_.keys) {
        if (auto fault = Run()) return fault;
    }
    return std::nullopt;
}

std::vector<Step> Life::Next(Play& play, const GameState& gs, const std::string& asked) {
    if (play.texts == play.texts_before && !play.silent_keys) {
        throw BrokenRule("every key is answered");
    }
    if (monkey_.Keys() >= plan_.keys) return {};
    if (plan_.fault_at >= 0 && monkey_.Keys() >= plan_.fault_at) throw BrokenRule("made up");
    if (runs_ % 10 == 0) LookAtFiles(documents_);
    play.texts_before = play.texts;
    play.silent_keys = true;
    std::vector<Step> steps;
    for (const Stroke& stroke : monkey_.Strokes(gs, asked)) {
        // Shift and taking back nothing say nothing while a line is typed.
        play.silent_keys = play.silent_keys && (stroke.key == 8 || stroke.key == 16);
        steps.push_back(StepOf(stroke));
        play.script += Line(stroke);
    }
    return steps;
}

std::optional<Fault> Life::Run() {
    ++runs_;
    CopyFolder(documents_.Path(), before_.Path());
    Play play;
    std::string wrong;
    try {
        DiskFiles disk;
        Rehearsal rehearsal({}, {documents_.Path(), plan_.sounds, plan_.sounds}, disk,
                            [&](std::string_view lines) { play.trace += lines; });
        const Platform services = rehearsal.Services();
        WitnessedEvents events(services.events);
        ListeningSpeech speech(services.speech);
        Form1 game({speech, services.sound, events, services.files, services.clock,
                    services.desktop, services.random});
        events.Watch(game.gs);
        rehearsal.ContinueWith([&] {
            play.texts = speech.Count();
            return Next(play, game.gs, speech.Last());
        });
        wrong = RunGame(rehearsal, game).message;
        LookAtFiles(documents_);
    } catch (const std::exception& broken) {
        wrong = broken.what();
    }
    reached_.Look(play.trace);
    if (!wrong.empty()) return Fault{wrong, play.script, play.trace, before_.Path()};
    constexpr int repeated = 25;  // one run in so many
    if (runs_ % repeated == 1 &&
        Replayed(play.script, before_.Path(), plan_.sounds) != play.trace) {
        return Fault{"the script gives the same trace", play.script, play.trace, before_.Path()};
    }
    return std::nullopt;
}

std::string Replayed(const std::string& script, const std::string& documents,
                     const std::string& sounds) {
    const TemporaryFolder copy;
    CopyFolder(documents, copy.Path());
    std::string trace;
    auto read = ReadScript(script, {WhyNotSet, WhyNotShow});
    if (!std::holds_alternative<Script>(read)) return "";
    DiskFiles disk;
    Rehearsal rehearsal(std::get<Script>(std::move(read)), {copy.Path(), sounds, sounds}, disk,
                        [&](std::string_view lines) { trace += lines; });
    Form1 game(rehearsal.Services());
    RunGame(rehearsal, game);
    return trace;
}

}  // namespace tamlo
