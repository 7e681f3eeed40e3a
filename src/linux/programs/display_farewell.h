// What is heard when the display goes away under the game.
#pragma once

#include "linux/window/desktop_window.h"
#include "services/speech.h"

namespace tamlo {

/// As long as one lives, the voice tells of a lost display: briefly, as no key can cut it short.
class DisplayFarewell {
  public:
    /// Both must outlive this object.
    DisplayFarewell(DesktopWindow& window, Speech& voice);
    DisplayFarewell(const DisplayFarewell&) = delete;
    DisplayFarewell& operator=(const DisplayFarewell&) = delete;
    ~DisplayFarewell();

  private:
    DesktopWindow& window_;
};

}  // namespace tamlo
