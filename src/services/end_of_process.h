// The game's process ends by one exception, caught in main, so that everything is released.
#pragma once

#include <string>

namespace tamlo {

/// Thrown at the game's own end and restart, and by event turns after the window was closed, a
/// signal arrived, or piped input ended. Not a std::exception, so that no handler swallows it.
struct EndOfProcess {
    int exit_status = 0;
    std::string reason;  ///< a line for the terminal, or empty
};

}  // namespace tamlo
