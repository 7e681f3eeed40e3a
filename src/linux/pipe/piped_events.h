// The event queue of a game whose keys come from a pipe or a file.
#pragma once

#include <optional>

#include "linux/pipe/activity.h"
#include "linux/terminal/key_input.h"
#include "services/events.h"

namespace tamlo {

/// A pipe does not know when the game is ready for a key, so each waits until the game is at rest
/// (see Activity). Turn and Pump throw EndOfProcess when a signal asks for the end; Turn also when
/// the input has ended and the game is at rest.
class PipedEvents : public Events {
  public:
    /// Everything must outlive this object.
    PipedEvents(KeyInput& keys, Activity& activity, SignalWatch& signals, const Clock& clock);

    void ShowWindow(const char* caption) override;
    void Turn(KeyListener& listener, double rest) override;
    /// For a wait that is no event turn.
    void Pump();

  private:
    bool LastKeyTaken();

    KeyInput& keys_;
    Activity& activity_;
    SignalWatch& signals_;
    const Clock& clock_;
    std::optional<std::chrono::microseconds> ended_at_;  ///< when the last key was taken
};

}  // namespace tamlo
