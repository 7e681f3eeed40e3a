// A program that runs under the eyes of a parent, so that its death is not silent.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace tamlo {

/// How a watched program ended.
struct RunEnd {
    int status = 0;     ///< what it returned, if it ended by itself
    int signal = 0;     ///< of which it died, else 0
    std::string notes;  ///< what it could still tell of its death
};

/// Whether a signal is how others ask a program to end, and no fault.
bool AsksToEnd(int signal);

/// Runs `program` in a child process, which ends the process with its result, and waits for that.
/// The calling process must have opened nothing and have one thread only: it stays as it is, small
/// and idle. Both share the terminal. The parent passes SIGTERM, SIGINT, SIGHUP, SIGQUIT and
/// SIGTSTP on, and stops when its child is stopped by the terminal. If the parent is killed, the
/// child gets SIGTERM; if the child runs longer than `longest`, it is killed.
/// Where no process can be made, `program` runs in this one.
RunEnd RunWatched(const std::function<int()>& program,
                  std::chrono::seconds longest = std::chrono::hours(24 * 365));

}  // namespace tamlo
