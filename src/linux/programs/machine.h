// Joins the game to the machine it runs on: a window if there is a display, else a terminal, else
// a pipe; the sound card or a clock in its place; the installed voices.
#pragma once

#include <functional>
#include <string>

namespace tamlo {

class Form1;
class InstalledVoices;
class SoundOutput;

/// What the program was started with.
struct FrontEndInfo {
    enum class Kind { window, terminal, pipe };
    Kind kind;
    const SoundOutput& sound;       ///< lives as long as the session
    const InstalledVoices& voices;  ///< as well
};

/// Called once the front end is known, before the session begins.
using OnFrontEnd = std::function<void(const FrontEndInfo&)>;

/// What a program does with the game once it is ready, such as playing it.
using Session = std::function<void(Form1&)>;

/// Runs the session to its EndOfProcess in a process of its own (see RunWatched), with the wave
/// files of the folder `sounds`; returns the exit status for this one. Restarts the program when
/// the game asked for it. If the session's process dies, the player is told, and the status is 128
/// plus the signal, as in shells.
int RunOnThisMachine(const std::string& sounds, const Session& session,
                     const OnFrontEnd& on_front_end = {});

}  // namespace tamlo
