// A change bell that a thread can wait for together with other descriptors.
#pragma once

#include <sys/eventfd.h>

#include <atomic>

#include "audio/mixing/change_bell.h"
#include "linux/system/descriptor.h"

namespace tamlo {

class EventBell final : public ChangeBell {
  public:
    void Ring() noexcept override {
        if (listened_to_) eventfd_write(event_.Number(), 1);
    }

    /// Readable after a ring, for poll; -1 if the system has none left.
    int Number() const { return event_.Number(); }
    /// Rings are passed on from now on, or no longer.
    void Listen(bool listening) noexcept { listened_to_ = listening; }
    /// Takes all rings so far.
    void TakeRings() noexcept {
        eventfd_t rings = 0;
        eventfd_read(event_.Number(), &rings);
    }

  private:
    const Descriptor event_{eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)};
    std::atomic<bool> listened_to_{false};
};

}  // namespace tamlo
