#include "services/wakeup.h"

#include <emscripten/threading.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <limits>

namespace tamlo {

struct Wakeup::Semaphore {
    std::atomic<std::int32_t> rings{0};

    void Await(double milliseconds) noexcept {
        if (rings.load() == 0) emscripten_futex_wait(&rings, 0, milliseconds);
    }
};

Wakeup::Wakeup() : semaphore_(std::make_unique<Semaphore>()) {}

Wakeup::~Wakeup() = default;

void Wakeup::Ring() noexcept {
    ++semaphore_->rings;
    emscripten_futex_wake(&semaphore_->rings, 1);
}

void Wakeup::SleepFor(std::chrono::microseconds time) noexcept {
    const auto end = std::chrono::steady_clock::now() + time;
    while (semaphore_->rings == 0) {
        const std::chrono::duration<double, std::milli> left =
            end - std::chrono::steady_clock::now();
        if (left.count() <= 0) break;
        semaphore_->Await(left.count());
    }
    semaphore_->rings = 0;
}

void Wakeup::Sleep() noexcept {
    while (semaphore_->rings == 0) semaphore_->Await(std::numeric_limits<double>::infinity());
    semaphore_->rings = 0;
}

}  // namespace tamlo
