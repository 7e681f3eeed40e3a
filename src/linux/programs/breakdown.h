// What becomes of a game that has died of a fault: the player hears of it, and a report is kept.
#pragma once

#include "linux/system/watched_run.h"

namespace tamlo {

/// Writes the report into the folder of the player's files, and tells the player in print and by a
/// fresh voice, which takes some seconds. Nothing here fails: what can't be written is not told
/// of, and what can't be spoken has been printed.
void TellBreakdown(const RunEnd& end);

}  // namespace tamlo
