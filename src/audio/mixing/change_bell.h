// Tells an output that renders ahead of what is heard that something else is wanted.
#pragma once

namespace tamlo {

/// Rung by any thread that asks for sound, also by the audio thread. Each edition has its own.
class ChangeBell {
  public:
    virtual ~ChangeBell() = default;
    /// Never waits; costs next to nothing while nobody listens.
    virtual void Ring() noexcept = 0;
};

}  // namespace tamlo
