// What a process that dies of a fault can still tell.
#pragma once

namespace tamlo {

/// From now on, should this process die of a fault, it writes to `descriptor` in which functions
/// it was, and with what exception, if one ended it. It dies of the same signal as ever. Handlers
/// that are there already (a sanitizer's) are left alone.
void LeaveCrashNotesIn(int descriptor);

}  // namespace tamlo
