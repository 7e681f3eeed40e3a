// Text in the window, by the library's own font renderer.
#include "linux/window/window_painter.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_ttf.h>

#include <algorithm>

namespace tamlo {

namespace {

constexpr const char* fonts[] = {
    "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf",
    "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "/usr/share/fonts/truetype/liberation/LiberationSans-Bold.ttf",
    "/usr/share/fonts/truetype/freefont/FreeSansBold.ttf",
};
constexpr int sizes[] = {56, 48, 40, 32, 26, 20, 16};  // in points, the first that fits is used
constexpr int smallest = 16;
constexpr int margin = 24;          // in pixels
constexpr int rows_in_window = 10;  // of the letters of spoken lines
constexpr std::size_t lines_kept = rows_in_window;
constexpr SDL_Color white = {255, 255, 255, 255};
constexpr SDL_Color yellow = {255, 255, 0, 255};

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

Surface DrawText(TTF_Font* font, const std::string& text, SDL_Color color, int width) {
    return Surface(
        TTF_RenderUTF8_Blended_Wrapped(font, text.c_str(), color, static_cast<Uint32>(width)));
}

/// The text drawn within width and height, or as small as can be; null without a font.
Surface DrawToFit(const std::string& text, int width, int height) {
    Surface drawn;
    for (const int size : sizes) {
        const Font font = OpenFont(size);
        if (!font) return nullptr;
        drawn = DrawText(font.get(), text, white, width);
        if (drawn && drawn->h <= height && drawn->w <= width) break;
    }
    return drawn;
}

void Blacken(SDL_Surface* canvas) {
    SDL_FillRect(canvas, nullptr, SDL_MapRGB(canvas->format, 0, 0, 0));
}

}  // namespace

/// A line, and its image once it has been painted.
struct WindowPainter::Drawn {
    std::string line;
    Surface image;
};

/// The font library, and the letters of lines, opened for the size that the window has.
struct WindowPainter::Letters {
    Letters() : ready(TTF_Init() == 0) {}
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;
    ~Letters() {
        font.reset();
        if (ready) TTF_Quit();
    }

    bool ready;
    Font font;
    int width = 0;
    int height = 0;
};

WindowPainter::WindowPainter() = default;
WindowPainter::~WindowPainter() = default;

void WindowPainter::AddLine(const std::string& line) {
    lines_.insert(lines_.begin(), Drawn{line, nullptr});
    if (lines_.size() > lines_kept) lines_.pop_back();
}

void WindowPainter::PaintLines(SDL_Window* window) {
    SDL_Surface* canvas = SDL_GetWindowSurface(window);  // owned by the window
    if (canvas == nullptr) return;
    Blacken(canvas);
    if (!lines_.empty()) DrawLines(canvas);
    SDL_UpdateWindowSurface(window);
}

void WindowPainter::DrawLines(SDL_Surface* canvas) {
    if (!letters_) letters_ = std::make_unique<Letters>();
    const int width = canvas->w - 2 * margin;
    if (letters_->ready && (letters_->width != width || letters_->height != canvas->h)) {
        letters_->width = width;
        letters_->height = canvas->h;
        letters_->font = OpenFont(std::max(canvas->h / rows_in_window * 3 / 4, smallest));
        for (Drawn& drawn : lines_) drawn.image.reset();
    }
    int bottom = canvas->h - margin;
    for (Drawn& drawn : lines_) {
        if (bottom <= margin || width <= 0 || !letters_->font) break;
        const SDL_Color color = drawn.line.starts_with('[') ? yellow : white;
        if (!drawn.image) drawn.image = DrawText(letters_->font.get(), drawn.line, color, width);
        if (!drawn.image) continue;
        bottom -= drawn.image->h;
        SDL_Rect place = {margin, bottom, drawn.image->w, drawn.image->h};
        SDL_BlitSurface(drawn.image.get(), nullptr, canvas, &place);
    }
}

void WindowPainter::PaintMessage(SDL_Window* window, const std::string& text) {
    SDL_Surface* canvas = SDL_GetWindowSurface(window);
    if (canvas == nullptr) return;
    Blacken(canvas);
    if (!letters_) letters_ = std::make_unique<Letters>();
    const int width = canvas->w - 2 * margin;
    const int height = canvas->h - 2 * margin;
    if (letters_->ready && width > 0 && height > 0) {
        if (const Surface drawn = DrawToFit(text, width, height)) {
            SDL_Rect place = {margin, margin, drawn->w, drawn->h};
            SDL_BlitSurface(drawn.get(), nullptr, canvas, &place);
        }
    }
    SDL_UpdateWindowSurface(window);
}

}  // namespace tamlo
