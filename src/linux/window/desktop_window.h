// The game's window: its keys, its message box, and every way in which the desktop ends the game.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "services/events.h"

namespace tamlo {

/// The window and its event queue. All calls belong to the thread that opened it. From the moment
/// the window is closed or SIGINT, SIGTERM or SIGHUP arrives, every call but the destructor throws
/// EndOfProcess; such a signal that comes more than a second later kills the process.
class DesktopWindow : public Events {
  public:
    /// Tells the window library what is wanted of it. To be called before any other thread uses it.
    static void Prepare();
    /// Connects to the display that the environment names. Null when there is none that delivers
    /// keys; `why_not` then says why, in a line. Another thread may be opening the sound card.
    static std::unique_ptr<DesktopWindow> Open(std::string& why_not);

    ~DesktopWindow() override;
    DesktopWindow(const DesktopWindow&) = delete;
    DesktopWindow& operator=(const DesktopWindow&) = delete;

    void ShowWindow(const char* caption) override;
    void Turn(KeyListener& listener, double rest) override;

    /// Keeps the window alive during a wait that is no event turn: answers the desktop, and leaves
    /// key presses queued for the next turn.
    void Pump();

    /// Adds a line to those seen in the window; it is painted in one of the next turns, once no key
    /// waits.
    void ShowLine(const std::string& line);

    /// A key from elsewhere, by its virtual-key code. Any thread may press it.
    static void Press(int code);

    /// Number of the window for the other programs of an X display; 0 on displays of other kinds.
    int Number() const;
    /// Tells in turns and pumps whether the window has got or lost the keyboard focus.
    void OnFocus(std::function<void(bool focused)> tell);

    /// Shows the text in the window and on standard error until the player presses Enter, Space or
    /// Escape. Keys pressed before it appears do not close it. `say` speaks the text without
    /// waiting for its end: it is called once, and again for any other key.
    void MessageBox(const std::string& text, const std::function<void()>& say = {});

    /// What is still done when the display has gone, before that ends the process: no call of the
    /// window's is possible any more, and no exception. An empty function for nothing.
    void WhenTheDisplayHasGone(std::function<void()> farewell);

  private:
    struct Impl;
    explicit DesktopWindow(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace tamlo
