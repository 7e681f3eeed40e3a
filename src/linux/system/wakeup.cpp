#include "services/wakeup.h"

#include <semaphore.h>
#include <time.h>

#include <cerrno>

namespace tamlo {
namespace {

void TakeRings(sem_t& semaphore) {
    while (sem_trywait(&semaphore) == 0) {
    }
}

}  // namespace

struct Wakeup::Semaphore {
    Semaphore() { sem_init(&rings, 0, 0); }
    ~Semaphore() { sem_destroy(&rings); }
    Semaphore(const Semaphore&) = delete;
    Semaphore& operator=(const Semaphore&) = delete;

    sem_t rings;
};

Wakeup::Wakeup() : semaphore_(std::make_unique<Semaphore>()) {}

Wakeup::~Wakeup() = default;

void Wakeup::Ring() noexcept {
    sem_post(&semaphore_->rings);
}

void Wakeup::SleepFor(std::chrono::microseconds time) noexcept {
    timespec end{};
    clock_gettime(CLOCK_MONOTONIC, &end);
    const auto nanoseconds = end.tv_nsec + (time % std::chrono::seconds(1)).count() * 1000;
    end.tv_sec += time / std::chrono::seconds(1) + nanoseconds / 1'000'000'000;
    end.tv_nsec = nanoseconds % 1'000'000'000;
    while (sem_clockwait(&semaphore_->rings, CLOCK_MONOTONIC, &end) != 0 && errno == EINTR) {
    }
    TakeRings(semaphore_->rings);
}

void Wakeup::Sleep() noexcept {
    while (sem_wait(&semaphore_->rings) != 0 && errno == EINTR) {
    }
    TakeRings(semaphore_->rings);
}

}  // namespace tamlo
