// Other programs: starting them without a shell, and restarting this one.
#pragma once

#include <string>
#include <vector>

namespace tamlo {

/// What a started program has to do with this one.
enum class StartAs {
    own_session,  ///< outlives this process; nobody waits for it
    quiet,        ///< the same, and what it prints goes nowhere
};

/// Starts a program, found along PATH unless its name holds a '/', with these arguments (the
/// first is the program). False if the arguments are empty or it cannot be started.
bool StartProgram(const std::vector<std::string>& arguments, StartAs as);

/// Runs a program in this terminal and returns when it has ended; meanwhile the terminal's keys
/// for interrupting mean only it. False if it cannot be started.
bool RunInTerminal(const std::vector<std::string>& arguments);

/// Path of this program's executable; empty if the system does not tell.
std::string ProgramPath();

/// The folder of this program's executable, "." if the system does not tell.
std::string ProgramFolder();

/// Replaces this process by a fresh run of its own executable. Returns only on failure.
void RestartProgram();

}  // namespace tamlo
