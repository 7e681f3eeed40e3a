// The sound card: opened, watched over and reopened by a thread of its own.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "audio/output/tap.h"
#include "linux/sound/event_bell.h"

namespace tamlo {

/// What has become of the card so far.
struct CardReport {
    std::string driver;  ///< "pipewire", "pulseaudio", "alsa" ...; empty while no card is open
    int frames = 0;      ///< of a block, as the card asks for them
    int late = 0;        ///< blocks asked for so late that a drop-out is likely, since the start
    int openings = 0;    ///< 1 when all went well
};

class SoundCard {
  public:
    /// Begins to open the default card, which is to pull the tap; `changes` is its mixer's bell. No
    /// window is needed, but one may be opened meanwhile. A card that comes, goes or changes later
    /// is followed. `may_interrupt` is asked, on another thread, whether the stream may pause for a
    /// moment: for the change to larger blocks after late ones.
    SoundCard(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes,
              std::function<bool()> may_interrupt);
    /// Leaves behind a driver that does not answer.
    ~SoundCard();
    SoundCard(const SoundCard&) = delete;
    SoundCard& operator=(const SoundCard&) = delete;

    /// Returns with the first block, when there is no card, or after a second and a half, whichever
    /// is first.
    void AwaitOpening() const;
    /// May be asked on any thread.
    CardReport Report() const;

  private:
    class Manager;
    std::shared_ptr<Manager> manager_;
};

}  // namespace tamlo
