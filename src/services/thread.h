// Starting threads, implemented by each edition.
#pragma once

#include <functional>
#include <thread>

namespace tamlo {

/// Runs `body` on a new thread. The thread gets no signals that are sent to the program, since
/// these have to wake the game's thread; its own faults still end the program. If the system has no
/// threads left, the result is empty (not joinable), nothing runs, and the caller goes on without
/// the thread.
std::thread StartThread(std::function<void()> body);

/// The system's number of the calling thread, never 0.
int ThisThread() noexcept;

/// Gives a thread, by its number, the lowest scheduling priority, as far as the system can.
void LowerPriority(int thread) noexcept;

}  // namespace tamlo
