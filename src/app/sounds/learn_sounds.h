// Learning the sounds: a spoken list of every effect of the game, each played as the game plays it.
#pragma once

namespace tamlo {

class Form1;

/// Runs the list until Escape; leaves only by EndOfProcess. The game itself is not started.
[[noreturn]] void LearnSounds(Form1& form);

}  // namespace tamlo
