// The two handlers that the X library lets a program put in place of its own.
#include "linux/window/display_faults.h"

#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "linux/window/x_window.h"

namespace tamlo {

namespace {

bool* lost_flag = nullptr;  // the handlers take no argument of ours
Window own_window = 0;
std::function<void()> last_words;

int RefusedRequest(Display*, XErrorEvent* error) {
    // Other refusals (of a focus, of a property) belong to a desktop's daily life.
    if (error->error_code == BadWindow && error->resourceid == own_window) *lost_flag = true;
    return 0;
}

// The library does not take control back after this one: there is no way to unwind from here, and
// exit() would run destructors under the feet of the sound card's thread.
int LostConnection(Display*) {
    std::fputs("The display has gone.\n", stderr);
    if (const auto farewell = std::exchange(last_words, nullptr)) farewell();
    std::_Exit(0);
}

}  // namespace

void WatchForDisplayFaults(SDL_Window* window, bool& lost) {
    own_window = XWindowOf(window);
    if (own_window == 0) return;
    lost_flag = &lost;
    XSetErrorHandler(RefusedRequest);
    XSetIOErrorHandler(LostConnection);
}

void SetFarewell(std::function<void()> farewell) {
    last_words = std::move(farewell);
}

}  // namespace tamlo
