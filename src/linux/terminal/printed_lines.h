// Lines of print, for braille displays, screen readers and logs.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tamlo {

/// Prints lines to a descriptor. A reader that goes away or stands still never ends the game.
class LinePrinter {
  public:
    /// What to do when nobody takes what is printed.
    enum class WhenStuck {
        wait,  ///< hold the game until it is taken: nothing is lost in a pipe
        drop,  ///< after a second, leave lines out: the game is played by ear
    };

    /// Where the cursor rests.
    enum class Cursor {
        below,    ///< under the last line, as in any file
        at_line,  ///< on its first character, where a braille display that follows it shows it
    };

    /// `check` is called while waiting and may throw to give up.
    LinePrinter(int descriptor, WhenStuck when_stuck, std::function<void()> check,
                Cursor cursor = Cursor::below);
    LinePrinter(const LinePrinter&) = delete;
    LinePrinter& operator=(const LinePrinter&) = delete;
    ~LinePrinter();

    /// Prints one line; nothing if it is empty. A terminal gets it broken at words.
    void Print(std::string_view line);
    /// Puts the cursor under the last line, for what is printed next.
    void LeaveLine();
    /// Prints a text of several lines, whichever line ends it has.
    void PrintLines(std::string_view text);

  private:
    bool Write(std::string_view rest);
    bool AwaitRoom();
    void GiveUp();

    int descriptor_;
    WhenStuck when_stuck_;
    std::function<void()> check_;
    Cursor cursor_;
    std::size_t rows_above_ = 0;  ///< line ends to print before the next line
    bool broken_ = false;
    bool stuck_ = false;  ///< the last line was left out
};

}  // namespace tamlo
