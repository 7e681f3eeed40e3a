// Which virtual-key code a key of the keyboard has: the numbers that `KeyListener` is told.
#pragma once

namespace tamlo {

/// A key press as the window library reports it.
struct KeyPress {
    int scancode = 0;  ///< place of the key (SDL_Scancode, named after the US layout)
    int keycode = 0;   ///< what the player's layout puts there (SDL_Keycode)
    bool num_lock = false;
    bool shift = false;
};

/// The virtual-key code, 1 to 226, or 0 for a key that the game is not told of. Letters and signs
/// follow the layout, digits their place; where a layout puts neither a Latin letter nor a sign
/// that has a code, the place on the US layout decides.
int VirtualKeyCode(const KeyPress& key);

/// Whether the code is that of a Shift, Control, Alt or Windows key.
bool IsModifier(int virtual_key_code);

}  // namespace tamlo
