// The real game on the rehearsal platform.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "game/form1.h"
#include "game/game_fields.h"
#include "listening_speech.h"
#include "performance.h"
#include "rehearsal/rehearsal.h"
#include "services/disk_files.h"
#include "temporary_folder.h"

namespace tamlo {

/// A game to rehearse; its Documents folder is kept from one run to the next.
class RehearsedGame {
  public:
    /// Called at rest after the script's last step: returns more steps, or none.
    /// `asked` is the last text that was spoken.
    using StepSource =
        std::function<std::vector<Step>(const GameState& gs, const std::string& asked)>;

    /// Runs the game once with a script.
    Performance Run(std::string_view script_text, const StepSource& more_steps = {}) {
        Performance performance;
        RunTo(performance, Parse(script_text), more_steps, [](Form1& game) { game.Form_Load(); });
        performance.lines = TraceLines(performance.trace);
        return performance;
    }

    /// Runs some operations of the game alone, as they are after the start-up.
    Performance Perform(std::string_view script_text, const std::function<void(Form1&)>& act) {
        // The last step never comes, so the operations may take any time.
        const std::string script = std::string(script_text) + "\nafter 900000000 escape";
        Performance performance;
        RunTo(performance, Parse(script), {}, [&act](Form1& game) {
            game.opensound();
            game.countvoices();
            game.getdatapath();
            game.setupvoice();
            game.setstreets();
            game.ldwv();
            game.setmaxa();
            act(game);
        });
        performance.lines = TraceLines(performance.trace);
        return performance;
    }

    /// Runs another program on the game's operations.
    Performance RunProgram(std::string_view script_text,
                           const std::function<void(Form1&)>& program) {
        Performance performance;
        RunTo(performance, Parse(script_text), {}, program);
        performance.lines = TraceLines(performance.trace);
        return performance;
    }

    void Write(const std::string& name, std::string_view bytes) const {
        documents.Write("tolvane/" + name, bytes);
    }
    std::string Content(const std::string& name) const {
        return documents.Content("tolvane/" + name);
    }
    bool Has(const std::string& name) const { return documents.Has("tolvane/" + name); }

    TemporaryFolder documents;
    DiskFiles disk;
    Files* files = &disk;               ///< a test may use a faulty disk instead
    std::string sounds = TAMLO_SOUNDS;  ///< the set built with the project
    std::string current_directory = sounds;
    bool has_documents = true;

  private:
    static Script Parse(std::string_view text) {
        auto script = ReadScript(text, {WhyNotSet, WhyNotShow});
        if (const auto* error = std::get_if<ScriptError>(&script)) {
            throw std::runtime_error("line " + std::to_string(error->line) + ": " + error->what);
        }
        return std::get<Script>(std::move(script));
    }

    void RunTo(Performance& performance, Script script, const StepSource& more_steps,
               const std::function<void(Form1&)>& act) {
        Rehearsal rehearsal(std::move(script),
                            {has_documents ? documents.Path() : "", sounds, current_directory},
                            *files, [&](std::string_view lines) { performance.trace += lines; });
        Platform services = rehearsal.Services();
        ListeningSpeech speech(services.speech);
        Form1 game({speech, services.sound, services.events, services.files, services.clock,
                    services.desktop, services.random});
        if (more_steps) {
            rehearsal.ContinueWith([&] { return more_steps(game.gs, speech.Last()); });
        }
        const FieldAccess fields{
            [&game](std::string_view field, std::string_view value) {
                SetField(game.gs, field, value);
            },
            [&game](std::string_view field) { return ShowField(game.gs, field); }};
        const RehearsalResult result = rehearsal.Run([&] { act(game); }, fields);
        performance.exit_status = result.exit_status;
        performance.message = result.message;
    }
};

}  // namespace tamlo
