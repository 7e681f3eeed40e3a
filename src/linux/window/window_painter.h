// What is seen in the game's window: in large letters on black, for people who watch.
#pragma once

#include <memory>
#include <string>
#include <vector>

struct SDL_Surface;
struct SDL_Window;

namespace tamlo {

/// Without a font, or on a window that cannot be painted, nothing is drawn and nothing fails.
class WindowPainter {
  public:
    WindowPainter();
    WindowPainter(const WindowPainter&) = delete;
    WindowPainter& operator=(const WindowPainter&) = delete;
    ~WindowPainter();

    /// The next line of what is spoken and heard; drawn only by PaintLines.
    void AddLine(const std::string& line);
    /// Paints the last lines, as many as fit: the newest at the bottom, captions in yellow.
    void PaintLines(SDL_Window* window);

    /// Paints a text alone. It is wrapped, and as large as fits.
    void PaintMessage(SDL_Window* window, const std::string& text);

  private:
    struct Drawn;
    struct Letters;

    void DrawLines(SDL_Surface* canvas);

    std::vector<Drawn> lines_;  ///< the newest first
    std::unique_ptr<Letters> letters_;
};

}  // namespace tamlo
