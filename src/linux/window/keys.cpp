// The tables behind `VirtualKeyCode`.
#include "linux/window/keys.h"

#include <SDL2/SDL_keycode.h>
#include <SDL2/SDL_scancode.h>

#include <iterator>

namespace tamlo {

namespace {

struct Row {
    int key;
    int code;
};

// Keys that count by their place whatever the layout puts there.
constexpr Row places[] = {
    {SDL_SCANCODE_1, 49},
    {SDL_SCANCODE_2, 50},
    {SDL_SCANCODE_3, 51},
    {SDL_SCANCODE_4, 52},
    {SDL_SCANCODE_5, 53},
    {SDL_SCANCODE_6, 54},
    {SDL_SCANCODE_7, 55},
    {SDL_SCANCODE_8, 56},
    {SDL_SCANCODE_9, 57},
    {SDL_SCANCODE_0, 48},
    {SDL_SCANCODE_KP_MULTIPLY, 106},
    {SDL_SCANCODE_KP_PLUS, 107},
    {SDL_SCANCODE_KP_MINUS, 109},
    {SDL_SCANCODE_KP_DIVIDE, 111},
    {SDL_SCANCODE_KP_ENTER, 13},
    {SDL_SCANCODE_NONUSBACKSLASH, 226},
};

struct KeypadRow {
    int key;
    int digit_code;
    int navigation_code;
};

constexpr KeypadRow keypad[] = {
    {SDL_SCANCODE_KP_0, 96, 45},       // Insert
    {SDL_SCANCODE_KP_1, 97, 35},       // End
    {SDL_SCANCODE_KP_2, 98, 40},       // down
    {SDL_SCANCODE_KP_3, 99, 34},       // page down
    {SDL_SCANCODE_KP_4, 100, 37},      // left
    {SDL_SCANCODE_KP_5, 101, 12},      // Clear
    {SDL_SCANCODE_KP_6, 102, 39},      // right
    {SDL_SCANCODE_KP_7, 103, 36},      // Home
    {SDL_SCANCODE_KP_8, 104, 38},      // up
    {SDL_SCANCODE_KP_9, 105, 33},      // page up
    {SDL_SCANCODE_KP_PERIOD, 110, 46}  // Delete
};

// Keys that count by what the layout puts on them.
constexpr Row meanings[] = {
    {SDLK_BACKSPACE, 8},
    {SDLK_TAB, 9},
    {SDLK_RETURN, 13},
    {SDLK_PAUSE, 19},
    {SDLK_CAPSLOCK, 20},
    {SDLK_ESCAPE, 27},
    {SDLK_SPACE, 32},
    {SDLK_PAGEUP, 33},
    {SDLK_PAGEDOWN, 34},
    {SDLK_END, 35},
    {SDLK_HOME, 36},
    {SDLK_LEFT, 37},
    {SDLK_UP, 38},
    {SDLK_RIGHT, 39},
    {SDLK_DOWN, 40},
    {SDLK_PRINTSCREEN, 44},
    {SDLK_INSERT, 45},
    {SDLK_DELETE, 46},
    {SDLK_LSHIFT, 16},
    {SDLK_RSHIFT, 16},
    {SDLK_LCTRL, 17},
    {SDLK_RCTRL, 17},
    {SDLK_LALT, 18},
    {SDLK_RALT, 18},
    {SDLK_MODE, 18},
    {SDLK_LGUI, 91},
    {SDLK_RGUI, 92},
    {SDLK_APPLICATION, 93},
    {SDLK_MENU, 93},
    {SDLK_NUMLOCKCLEAR, 144},
    {SDLK_SCROLLLOCK, 145},
    {SDLK_SEMICOLON, 186},
    {SDLK_EQUALS, 187},
    {SDLK_COMMA, 188},
    {SDLK_MINUS, 189},
    {SDLK_PERIOD, 190},
    {SDLK_SLASH, 191},
    {SDLK_BACKQUOTE, 192},
    {SDLK_LEFTBRACKET, 219},
    {SDLK_BACKSLASH, 220},
    {SDLK_RIGHTBRACKET, 221},
    {SDLK_QUOTE, 222},
};

// What the US layout puts where a sign may stand; the keys that are not here mean the same on
// every layout, as far as the game is concerned.
constexpr Row us_layout[] = {
    {SDL_SCANCODE_SEMICOLON, SDLK_SEMICOLON},
    {SDL_SCANCODE_EQUALS, SDLK_EQUALS},
    {SDL_SCANCODE_COMMA, SDLK_COMMA},
    {SDL_SCANCODE_MINUS, SDLK_MINUS},
    {SDL_SCANCODE_PERIOD, SDLK_PERIOD},
    {SDL_SCANCODE_SLASH, SDLK_SLASH},
    {SDL_SCANCODE_GRAVE, SDLK_BACKQUOTE},
    {SDL_SCANCODE_LEFTBRACKET, SDLK_LEFTBRACKET},
    {SDL_SCANCODE_BACKSLASH, SDLK_BACKSLASH},
    {SDL_SCANCODE_NONUSHASH, SDLK_BACKSLASH},
    {SDL_SCANCODE_RIGHTBRACKET, SDLK_RIGHTBRACKET},
    {SDL_SCANCODE_APOSTROPHE, SDLK_QUOTE},
    {SDL_SCANCODE_SPACE, SDLK_SPACE},
};

/// The second column of the row whose first is `key`, or 0.
template <std::size_t n>
int LookUp(const Row (&rows)[n], int key) {
    for (const Row& row : rows) {
        if (row.key == key) return row.code;
    }
    return 0;
}

/// Virtual-key code of a keycode, or 0.
int CodeOfMeaning(int keycode) {
    if (keycode >= SDLK_a && keycode <= SDLK_z) return keycode - SDLK_a + 65;
    if (keycode >= SDLK_F1 && keycode <= SDLK_F12) return keycode - SDLK_F1 + 112;
    if (keycode >= SDLK_F13 && keycode <= SDLK_F24) return keycode - SDLK_F13 + 124;
    return LookUp(meanings, keycode);
}

/// The keycode that the US layout has at a place.
int UsKeycode(int scancode) {
    if (scancode >= SDL_SCANCODE_A && scancode <= SDL_SCANCODE_Z) {
        return scancode - SDL_SCANCODE_A + SDLK_a;
    }
    if (const int sign = LookUp(us_layout, scancode); sign != 0) return sign;
    return SDL_SCANCODE_TO_KEYCODE(scancode);
}

}  // namespace

int VirtualKeyCode(const KeyPress& key) {
    for (const KeypadRow& row : keypad) {
        if (row.key != key.scancode) continue;
        // Shift turns the digits of the keypad into navigation, never the other way round.
        return key.num_lock && !key.shift ? row.digit_code : row.navigation_code;
    }
    if (const int code = LookUp(places, key.scancode); code != 0) return code;
    if (const int code = CodeOfMeaning(key.keycode); code != 0) return code;
    return CodeOfMeaning(UsKeycode(key.scancode));
}

bool IsModifier(int virtual_key_code) {
    return (virtual_key_code >= 16 && virtual_key_code <= 18) || virtual_key_code == 91 ||
           virtual_key_code == 92;
}

}  // namespace tamlo
