#include "linux/window/x_window.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_syswm.h>
#include <X11/Xlib.h>

namespace tamlo {

namespace {

SDL_SysWMinfo SystemsView(SDL_Window* window) {
    SDL_SysWMinfo info{};
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(window, &info) == SDL_FALSE) info.subsystem = SDL_SYSWM_UNKNOWN;
    return info;
}

}  // namespace

unsigned long XWindowOf(SDL_Window* window) {
    const SDL_SysWMinfo info = SystemsView(window);
    return info.subsystem == SDL_SYSWM_X11 ? info.info.x11.window : 0;
}

void SetTitle(SDL_Window* window, const char* title) {
    SDL_SetWindowTitle(window, title);
    const SDL_SysWMinfo info = SystemsView(window);
    if (info.subsystem != SDL_SYSWM_X11) return;
    XStoreName(info.info.x11.display, info.info.x11.window, title);
}

}  // namespace tamlo
