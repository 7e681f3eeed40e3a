// The game's window: its keys, its message box, and every way in which the desktop ends the game.
#pragma once

#include <memory>
#include <string>

#include "platform/events.h"

namespace tamlo {

/// The window and its event queue. All calls belong to the thread that opened it. From the moment
/// the window is closed or SIGINT, SIGTERM or SIGHUP arrives, every call but the destructor throws
/// EndOfProcess; a second such signal kills the process.
class DesktopWindow : public Events {
  public:
    /// Connects to the display that the environment names. Null when there is none that delivers
    /// keys; `why_not` then says why, in a line.
    static std::unique_ptr<DesktopWindow> Open(std::string& why_not);

    ~DesktopWindow() override;
    DesktopWindow(const DesktopWindow&) = delete;
    DesktopWindow& operator=(const DesktopWindow&) = delete;

    void ShowWindow(const char* caption) override;
    void Turn(KeyListener& listener, double rest) override;

    /// Keeps the window alive during a wait that is no event turn: answers the desktop, and leaves
    /// key presses queued for the next turn.
    void Pump();

    /// Shows the text in the window and on standard error until the player presses Enter, Space or
    /// Escape. Keys pressed before it appears do not close it.
    void MessageBox(const std::string& text);

  private:
    struct Impl;
    explicit DesktopWindow(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace tamlo
