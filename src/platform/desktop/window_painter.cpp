// Text in the window, by the library's own font renderer.
#include "platform/desktop/window_painter.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_ttf.h>

#include <memory>

namespace tamlo {

namespace {

constexpr const char* fonts[] = {
    "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf",
    "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "/usr/share/fonts/truetype/liberation/LiberationSans-Bold.ttf",
    "/usr/share/fonts/truetype/freefont/FreeSansBold.ttf",
};
constexpr int sizes[] = {56, 48, 40, 32, 26, 20, 16};  // in points, the first that fits is used
constexpr int margin = 24;                             // in pixels

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

struct CloseFont {
    void operator()(TTF_Font* font) const { TTF_CloseFont(font); }
};
using Font = std::unique_ptr<TTF_Font, CloseFont>;

Font OpenFont(int size) {
    for (const char* path : fonts) {
        if (Font font{TTF_OpenFont(path, size)}) return font;
    }
    return nullptr;
}

/// The text drawn within width and height, or as small as can be; null without a font.
Surface DrawText(const std::string& text, int width, int height) {
    constexpr SDL_Color white = {255, 255, 255, 255};
    Surface drawn;
    for (const int size : sizes) {
        const Font font = OpenFont(size);
        if (!font) return nullptr;
        drawn.reset(TTF_RenderUTF8_Blended_Wrapped(font.get(), text.c_str(), white,
                                                   static_cast<Uint32>(width)));
        if (drawn && drawn->h <= height && drawn->w <= width) break;
    }
    return drawn;
}

}  // namespace

void PaintWindow(SDL_Window* window, const std::string& text) {
    SDL_Surface* canvas = SDL_GetWindowSurface(window);  // owned by the window
    if (canvas == nullptr) return;
    SDL_FillRect(canvas, nullptr, SDL_MapRGB(canvas->format, 0, 0, 0));
    const int width = canvas->w - 2 * margin;
    const int height = canvas->h - 2 * margin;
    if (!text.empty() && width > 0 && height > 0 && TTF_Init() == 0) {
        if (const Surface drawn = DrawText(text, width, height)) {
            SDL_Rect place = {margin, margin, drawn->w, drawn->h};
            SDL_BlitSurface(drawn.get(), nullptr, canvas, &place);
        }
        TTF_Quit();
    }
    SDL_UpdateWindowSurface(window);
}

}  // namespace tamlo
