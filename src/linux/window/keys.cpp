// The tables behind `VirtualKeyCode`.
#include "linux/window/keys.h"

#include <SDL2/SDL_keycode.h>
#include <SDL2/SDL_scancode.h>

#include <iterator>

#include "services/key_codes.h"

namespace tamlo {

namespace {

struct Row {
    int key;
    int code;
};

// Keys that count by their place whatever the layout puts there.
constexpr Row places[] = {
    {SDL_SCANCODE_1, '1'},
    {SDL_SCANCODE_2, '2'},
    {SDL_SCANCODE_3, '3'},
    {SDL_SCANCODE_4, '4'},
    {SDL_SCANCODE_5, '5'},
    {SDL_SCANCODE_6, '6'},
    {SDL_SCANCODE_7, '7'},
    {SDL_SCANCODE_8, '8'},
    {SDL_SCANCODE_9, '9'},
    {SDL_SCANCODE_0, '0'},
    {SDL_SCANCODE_KP_MULTIPLY, keys::keypad_times},
    {SDL_SCANCODE_KP_PLUS, keys::keypad_plus},
    {SDL_SCANCODE_KP_MINUS, keys::keypad_minus},
    {SDL_SCANCODE_KP_DIVIDE, keys::keypad_divide},
    {SDL_SCANCODE_KP_ENTER, keys::enter},
    {SDL_SCANCODE_NONUSBACKSLASH, keys::beside_left_shift},
};

struct KeypadRow {
    int key;
    int digit_code;
    int navigation_code;
};

constexpr KeypadRow keypad[] = {{SDL_SCANCODE_KP_0, keys::keypad_0, keys::insert},
                                {SDL_SCANCODE_KP_1, keys::keypad_0 + 1, keys::end},
                                {SDL_SCANCODE_KP_2, keys::keypad_0 + 2, keys::down},
                                {SDL_SCANCODE_KP_3, keys::keypad_0 + 3, keys::page_down},
                                {SDL_SCANCODE_KP_4, keys::keypad_0 + 4, keys::left},
                                {SDL_SCANCODE_KP_5, keys::keypad_0 + 5, keys::clear},
                                {SDL_SCANCODE_KP_6, keys::keypad_0 + 6, keys::right},
                                {SDL_SCANCODE_KP_7, keys::keypad_0 + 7, keys::home},
                                {SDL_SCANCODE_KP_8, keys::keypad_0 + 8, keys::up},
                                {SDL_SCANCODE_KP_9, keys::keypad_0 + 9, keys::page_up},
                                {SDL_SCANCODE_KP_PERIOD, keys::keypad_point, keys::delete_key}};

// Keys that count by what the layout puts on them.
constexpr Row meanings[] = {
    {SDLK_BACKSPACE, keys::backspace},
    {SDLK_TAB, keys::tab},
    {SDLK_RETURN, keys::enter},
    {SDLK_PAUSE, keys::pause},
    {SDLK_CAPSLOCK, keys::caps_lock},
    {SDLK_ESCAPE, keys::escape},
    {SDLK_SPACE, keys::space},
    {SDLK_PAGEUP, keys::page_up},
    {SDLK_PAGEDOWN, keys::page_down},
    {SDLK_END, keys::end},
    {SDLK_HOME, keys::home},
    {SDLK_LEFT, keys::left},
    {SDLK_UP, keys::up},
    {SDLK_RIGHT, keys::right},
    {SDLK_DOWN, keys::down},
    {SDLK_PRINTSCREEN, keys::print_screen},
    {SDLK_INSERT, keys::insert},
    {SDLK_DELETE, keys::delete_key},
    {SDLK_LSHIFT, keys::shift},
    {SDLK_RSHIFT, keys::shift},
    {SDLK_LCTRL, keys::control},
    {SDLK_RCTRL, keys::control},
    {SDLK_LALT, keys::alt},
    {SDLK_RALT, keys::alt},
    {SDLK_MODE, keys::alt},
    {SDLK_LGUI, keys::left_super},
    {SDLK_RGUI, keys::right_super},
    {SDLK_APPLICATION, keys::menu},
    {SDLK_MENU, keys::menu},
    {SDLK_NUMLOCKCLEAR, keys::num_lock},
    {SDLK_SCROLLLOCK, keys::scroll_lock},
    {SDLK_SEMICOLON, keys::semicolon},
    {SDLK_EQUALS, keys::equals},
    {SDLK_COMMA, keys::comma},
    {SDLK_MINUS, keys::hyphen},
    {SDLK_PERIOD, keys::full_stop},
    {SDLK_SLASH, keys::slash},
    {SDLK_BACKQUOTE, keys::grave_accent},
    {SDLK_LEFTBRACKET, keys::left_bracket},
    {SDLK_BACKSLASH, keys::backslash},
    {SDLK_RIGHTBRACKET, keys::right_bracket},
    {SDLK_QUOTE, keys::apostrophe},
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
    if (keycode >= SDLK_a && keycode <= SDLK_z) return keycode - SDLK_a + 'A';
    if (keycode >= SDLK_F1 && keycode <= SDLK_F12) return keycode - SDLK_F1 + keys::f1;
    if (keycode >= SDLK_F13 && keycode <= SDLK_F24) return keycode - SDLK_F13 + keys::f1 + 12;
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
    return (virtual_key_code >= keys::shift && virtual_key_code <= keys::alt) ||
           virtual_key_code == keys::left_super || virtual_key_code == keys::right_super;
}

}  // namespace tamlo
