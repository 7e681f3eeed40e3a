// What is seen in the game's window: black, or a text in large white letters.
#pragma once

#include <string>

struct SDL_Window;

namespace tamlo {

/// Paints the whole window. The text is wrapped and as large as fits; without a font, or on a
/// window that cannot be painted, nothing is drawn and nothing fails.
void PaintWindow(SDL_Window* window, const std::string& text);

}  // namespace tamlo
