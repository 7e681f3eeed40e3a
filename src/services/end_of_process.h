// How the game's process ends: by one exception, caught in main, so that everything is released
// on the way out.
#pragma once

#include <string>

namespace tamlo {

/// Thrown by the game's own end and restart, and by event turns that find the window closed, a
/// signal, or the end of piped input. Not a std::exception: nothing on the way may swallow it.
struct EndOfProcess {
    int exit_status = 0;
    std::string reason;  ///< a line for the terminal, or empty
};

}  // namespace tamlo
