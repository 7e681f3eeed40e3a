// Threads are workers of the page; a browser gives them no priorities.
#include "services/thread.h"

#include <pthread.h>

#include <system_error>
#include <utility>

namespace tamlo {

std::thread StartThread(std::function<void()> body) {
    try {
        return std::thread(std::move(body));
    } catch (const std::system_error&) {
        return {};
    }
}

int ThisThread() noexcept {
    return static_cast<int>(reinterpret_cast<std::uintptr_t>(pthread_self()));
}

void LowerPriority(int /*thread*/) noexcept {}

}  // namespace tamlo
