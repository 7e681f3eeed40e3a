// A platform for rehearsals: a virtual clock, keys from a script, and speech and sound that are
// written down in a trace instead of heard. docs/rehearsal.md has its rules.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "rehearsal/prompter.h"
#include "rehearsal/script.h"
#include "rehearsal/trace.h"
#include "rehearsal/virtual_time.h"
#include "services/files.h"
#include "services/platform.h"

namespace tamlo {

/// The folders of a rehearsal: absolute paths without a "/" at the end.
struct RehearsalFolders {
    std::string documents;          ///< the user's Documents folder; empty: there is none
    std::string sounds;             ///< the program's own folder
    std::string current_directory;  ///< the process's, as the game sees it
};

struct RehearsalResult {
    int exit_status = 0;  ///< 0: to the end of the script or of the game; 1: a step has failed
    std::string message;  ///< what the failed step waited for
};

class Rehearsal {
  public:
    /// `disk` does the work on files; it must outlive the rehearsal.
    Rehearsal(Script script, RehearsalFolders folders, Files& disk, TraceSink sink);
    ~Rehearsal();
    Rehearsal(const Rehearsal&) = delete;
    Rehearsal& operator=(const Rehearsal&) = delete;

    /// The services for a game, which must be destroyed before the rehearsal.
    Platform Services();

    /// Continues the rehearsal after its script: each time the game is at rest after the last step,
    /// `more` returns further steps, or none to end the rehearsal.
    void ContinueWith(std::function<std::vector<Step>()> more);

    /// An utterance lasts as long as `length` says instead of a fixed time for each character; for
    /// a platform that has a voice. Asked once for each, when the game gives it.
    void SpeakFor(std::function<Ticks(std::string_view text)> length);

    /// Runs the game, which was made before, to its end or that of the script. The game's objects
    /// must outlive this call, so that their release writes no lines. Call it once.
    RehearsalResult Run(const std::function<void()>& game, FieldAccess fields);

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace tamlo
