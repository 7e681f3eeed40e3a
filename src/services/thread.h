// Threads beside the game's: every edition starts them in one way.
#pragma once

#include <functional>
#include <thread>

namespace tamlo {

/// Runs `body` on a thread of its own. Signals sent to the program wake the game's thread, so this
/// one gets none; its own faults still end the program. The thread is empty (not joinable) if the
/// system has none left: then nothing runs, and the caller goes on without.
std::thread StartThread(std::function<void()> body);

/// The system's number of the calling thread, never 0.
int ThisThread() noexcept;

/// Gives a thread, by its number, the lowest scheduling priority, as far as the system can.
void LowerPriority(int thread) noexcept;

}  // namespace tamlo
