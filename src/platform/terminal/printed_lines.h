// Spoken texts as lines of print, for braille displays, screen readers and logs.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tamlo {

/// The text as one line that no terminal can take for a command: without blanks at its ends,
/// control characters as blanks, ill-formed UTF-8 left out. Empty if nothing is left.
std::string PrintableLine(std::string_view text);

/// Prints lines to a descriptor. A reader that goes away or stands still never ends the game.
class LinePrinter {
  public:
    /// What to do when nobody takes what is printed.
    enum class WhenStuck {
        wait,  ///< hold the game until it is taken: nothing is lost in a pipe
        drop,  ///< after a second, leave lines out: the game is played by ear
    };

    /// `check` is called while waiting and may throw to give up.
    LinePrinter(int descriptor, WhenStuck when_stuck, std::function<void()> check);

    /// Prints the line and a line end; nothing if the line is empty.
    void Print(std::string_view line);
    /// Prints a text of several lines, whichever line ends it has.
    void PrintLines(std::string_view text);

  private:
    bool AwaitRoom();
    void GiveUp();

    int descriptor_;
    WhenStuck when_stuck_;
    std::function<void()> check_;
    bool broken_ = false;
    bool stuck_ = false;  ///< the last line was left out
};

}  // namespace tamlo
