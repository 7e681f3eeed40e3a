// The event queue of the game's window: processing it, and the listener for key presses.
#pragma once

#include <limits>

namespace tamlo {

/// Receives every key press (and key repeat) during an event turn.
class KeyListener {
  public:
    virtual ~KeyListener() = default;
    /// `code` is a virtual-key code: 13 Enter, 27 Escape, 65 to 90 letters, 112 to 123 F1 to F12.
    virtual void Form_KeyDown(int code, int modifiers) = 0;
};

/// A rest for `Events::Turn` that is ended by an event only.
inline constexpr double until_event = std::numeric_limits<double>::infinity();

class Events {
  public:
    virtual ~Events() = default;

    /// Shows the game's window with this caption and the keyboard focus. No effect if there is no
    /// window.
    virtual void ShowWindow(const char* caption) = 0;

    /// One event-processing turn: passes every queued key press to the listener. If nothing is
    /// queued, first sleeps until an event comes or about `rest` seconds have passed (0: not at
    /// all; it may always return early). Throws EndOfProcess if the window was closed, a signal
    /// asks for the end, or the input has ended.
    virtual void Turn(KeyListener& listener, double rest) = 0;
};

}  // namespace tamlo
