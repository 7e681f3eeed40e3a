// Tells whoever renders ahead of what is heard that something else is wanted.
#pragma once

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>

namespace tamlo {

/// Rung by the threads that ask for sound, listened to by the one that makes it; a ring costs next
/// to nothing while nobody listens.
class ChangeBell {
  public:
    ChangeBell() noexcept : descriptor_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}
    ~ChangeBell() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    ChangeBell(const ChangeBell&) = delete;
    ChangeBell& operator=(const ChangeBell&) = delete;

    void Ring() noexcept {
        if (listened_to_) eventfd_write(descriptor_, 1);
    }

    /// Readable after a ring, for poll; -1 if the system has none left.
    int Descriptor() const { return descriptor_; }
    void Listen(bool listening) noexcept { listened_to_ = listening; }
    /// Takes all rings so far.
    void TakeRings() noexcept {
        eventfd_t rings = 0;
        eventfd_read(descriptor_, &rings);
    }

  private:
    const int descriptor_;
    std::atomic<bool> listened_to_{false};
};

}  // namespace tamlo
