// Faults of the X display, which its library answers by ending the process in mid-flight.
#pragma once

#include <functional>

struct SDL_Window;

namespace tamlo {

/// From now on a request refused because another program has destroyed our window ends nothing by
/// itself, but sets `lost`, which must outlive the window; the window may then not be touched
/// again, not even to close it. A lost connection (the display itself has gone) ends the process,
/// with a line on standard error and the farewell. No effect on displays of another kind.
void WatchForDisplayFaults(SDL_Window* window, bool& lost);

/// What is still done when the connection has been lost, instead of what was given before. It must
/// not touch the window, nor throw.
void SetFarewell(std::function<void()> farewell);

}  // namespace tamlo
