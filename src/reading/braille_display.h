// A braille display that BRLTTY drives, where there is one.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tamlo {

/// Whether BRLTTY's library is there to be used.
bool BrailleLibraryInstalled();

/// Shows lines in pieces of the display's width, and takes its keys for the game. All waiting is
/// done by a thread of its own, which looks for BRLTTY again and again; without BRLTTY's library,
/// or without BRLTTY, nothing happens.
class BrailleDisplay {
  public:
    struct Plan {
        /// Number of the desktop window that the display belongs to while it has the focus, 0
        /// where windows have none; without it, the display belongs to the terminal.
        std::optional<int> window;
        /// Called in the display's thread with the virtual-key code of each key.
        std::function<void(int code)> press;
    };

    explicit BrailleDisplay(Plan plan);
    BrailleDisplay(const BrailleDisplay&) = delete;
    BrailleDisplay& operator=(const BrailleDisplay&) = delete;
    /// Presses no more keys. Waits for the thread no longer than a moment.
    ~BrailleDisplay();

    /// Shows the line in place of what is shown; never waits.
    void Show(const std::string& line);
    /// Whether a display shows the game's lines, or begins to within this time, in which `pump` is
    /// called now and then.
    bool AwaitDisplay(std::chrono::milliseconds longest, const std::function<void()>& pump);
    /// Whether the game has the player's attention: without it the display is left to others. At
    /// first it has.
    void SetFocus(bool focused);
    /// Takes the focus away, and waits a moment for the display to be left: another program goes on
    /// in the game's place.
    void GiveBack();

  private:
    struct Mailbox;
    class Reader;
    std::shared_ptr<Mailbox> mailbox_;
};

}  // namespace tamlo
