// Learning the sounds: a spoken list of all effects, each played as in the game.
#pragma once

namespace tamlo {

class Form1;

/// Runs the list until Escape; leaves only by EndOfProcess. The game itself is not started.
[[noreturn]] void LearnSounds(Form1& form);

}  // namespace tamlo
