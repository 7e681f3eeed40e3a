// Joins the game to the machine it runs on: a window if there is a display, else a terminal, else
// a pipe; the sound card or a clock in its place; the installed voices.
#pragma once

#include <functional>
#include <string>

namespace tamlo {

class Form1;
class SoundOutput;

/// What the game has found to run on.
struct Place {
    enum class Front { window, terminal, pipe };
    Front front;
    const SoundOutput& sound;  ///< lives as long as the story
};

/// Told of the place before the story begins.
using Introduction = std::function<void(const Place&)>;

/// What is done with the game once it stands: to play it, for the most part.
using Story = std::function<void(Form1&)>;

/// Runs the story to its EndOfProcess in a process of its own (see RunWatched), with the wave files
/// of the folder `sounds`; the exit status for this one. Restarts the program when the game asked
/// for it. Should the story's process die, the player is told, and the status is 128 and the
/// signal, as shells have it.
int RunOnThisMachine(const std::string& sounds, const Story& story,
                     const Introduction& introduction = {});

}  // namespace tamlo
