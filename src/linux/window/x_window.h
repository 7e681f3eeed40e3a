// What the window library keeps to itself of a window on an X display.
#pragma once

struct SDL_Window;

namespace tamlo {

/// The number of a window on an X display, 0 on displays of another kind.
unsigned long XWindowOf(SDL_Window* window);

/// Gives a window a title of ASCII. What the window library does by itself is lost on programs that
/// look for a window by the older of its two names: in a UTF-8 locale that one is of a type of the
/// library's own.
void SetTitle(SDL_Window* window, const char* title);

}  // namespace tamlo
