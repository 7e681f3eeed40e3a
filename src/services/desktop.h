// Other services of the desktop: the user's folders, a message box, a beep, other programs.
#pragma once

#include <string>

namespace tamlo {

/// Number of the Documents folder for `Desktop::SpecialFolder`.
inline constexpr int documents_folder = 5;

class Desktop {
  public:
    virtual ~Desktop() = default;

    /// Absolute path of one of the user's folders, created when missing; empty if there is none.
    virtual std::string SpecialFolder(int number) = 0;
    /// Shows the text with an OK button only, and returns after the player has closed it.
    /// May throw EndOfProcess.
    virtual void MessageBox(const std::string& text) = 0;
    /// A short alert sound, without waiting for its end.
    virtual void Beep() = 0;
    /// Opens a text file in the player's editor. Returns at once on a desktop, and after the editor
    /// has ended in a terminal. False if no editor could be started.
    virtual bool StartEditor(const std::string& path) = 0;
    /// Starts the program file `path` in the current directory; false if it can't be started.
    virtual bool StartLauncher(const std::string& path) = 0;
    /// Restarts the game after this process has released everything. The caller ends the process
    /// (EndOfProcess) next.
    virtual void StartGame() = 0;
};

}  // namespace tamlo
