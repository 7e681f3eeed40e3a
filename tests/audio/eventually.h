// Waiting for what another thread or process does, for as long as a busy machine may need.
#pragma once

#include <chrono>
#include <thread>

namespace tamlo {

/// Asks every millisecond; false if it has not happened after half a minute.
template <typename Condition>
bool Eventually(const Condition& happens) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!happens()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

}  // namespace tamlo
