// Whether the game is at rest: the moment at which the next key from a pipe is due.
#pragma once

#include <optional>
#include <vector>

#include "services/clock.h"

namespace tamlo {

class Activity;

/// Something that may be speaking or sounding.
class Busy {
  public:
    explicit Busy(Activity& activity);
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    virtual bool IsBusy() const = 0;

  protected:
    ~Busy();

    Activity& activity_;
};

/// The game is at rest when nothing is spoken, no once-played sound is playing, and for a second
/// none did and it has asked for nothing but event turns, the clock and status.
class Activity {
  public:
    /// `clock` must outlive this object.
    explicit Activity(const Clock& clock);

    /// The game has asked for something.
    void Asked();
    /// Seconds until the game may be at rest, if nothing happens meanwhile: 0 when it is. To be
    /// called in every event turn.
    double SecondsUntilRest();
    /// Whether something is spoken or played once now.
    bool IsBusy() const;

  private:
    friend class Busy;

    const Clock& clock_;
    std::chrono::microseconds active_;  ///< when it was last seen active
    std::vector<const Busy*> watched_;
};

}  // namespace tamlo
