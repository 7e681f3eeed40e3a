// One game at a time on a player's files.
#pragma once

namespace tamlo {

class Form1;

/// Plays the game, unless another one is playing with the same files: then waits two seconds
/// with the title tune, in case that it is just ending, tells the player, and ends with status 1.
/// Leaves only by EndOfProcess.
void PlayIfOnlyInstance(Form1& game);

}  // namespace tamlo
