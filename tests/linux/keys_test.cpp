// The keys of the keyboard and their virtual-key codes, on several layouts.
#include "linux/window/keys.h"

#include <SDL2/SDL_keycode.h>
#include <SDL2/SDL_scancode.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tamlo {
namespace {

struct Case {
    const char* what;
    int scancode;
    int keycode;
    int code;
};

TEST(Keys, CountByMeaningOrPlace) {
    const Case cases[] = {
        {"US A", SDL_SCANCODE_A, SDLK_a, 65},
        {"US Z", SDL_SCANCODE_Z, SDLK_z, 90},
        {"French A stands at Q", SDL_SCANCODE_Q, SDLK_a, 65},
        {"French M stands at semicolon", SDL_SCANCODE_SEMICOLON, SDLK_m, 77},
        {"French comma stands at M", SDL_SCANCODE_M, SDLK_COMMA, 188},
        {"Russian ef stands at A", SDL_SCANCODE_A, 0x444, 65},
        {"Russian zhe stands at semicolon", SDL_SCANCODE_SEMICOLON, 0x436, 186},
        {"Greek sigma final stands at W", SDL_SCANCODE_W, 0x3c2, 87},
        {"US 1", SDL_SCANCODE_1, SDLK_1, 49},
        {"French 1 is an ampersand", SDL_SCANCODE_1, SDLK_AMPERSAND, 49},
        {"French 0 is an a with grave", SDL_SCANCODE_0, 0xe0, 48},
        {"Czech 9 is an i with acute", SDL_SCANCODE_9, 0xed, 57},
        {"Enter", SDL_SCANCODE_RETURN, SDLK_RETURN, 13},
        {"keypad Enter", SDL_SCANCODE_KP_ENTER, SDLK_KP_ENTER, 13},
        {"left Shift", SDL_SCANCODE_LSHIFT, SDLK_LSHIFT, 16},
        {"right Shift", SDL_SCANCODE_RSHIFT, SDLK_RSHIFT, 16},
        {"left Control", SDL_SCANCODE_LCTRL, SDLK_LCTRL, 17},
        {"Caps Lock made a Control", SDL_SCANCODE_CAPSLOCK, SDLK_LCTRL, 17},
        {"right Alt", SDL_SCANCODE_RALT, SDLK_RALT, 18},
        {"right Alt as a layout shift", SDL_SCANCODE_RALT, SDLK_MODE, 18},
        {"Backspace", SDL_SCANCODE_BACKSPACE, SDLK_BACKSPACE, 8},
        {"Tab", SDL_SCANCODE_TAB, SDLK_TAB, 9},
        {"Escape", SDL_SCANCODE_ESCAPE, SDLK_ESCAPE, 27},
        {"Space", SDL_SCANCODE_SPACE, SDLK_SPACE, 32},
        {"Space that the layout makes a narrow one", SDL_SCANCODE_SPACE, 0x202f, 32},
        {"left", SDL_SCANCODE_LEFT, SDLK_LEFT, 37},
        {"up", SDL_SCANCODE_UP, SDLK_UP, 38},
        {"right", SDL_SCANCODE_RIGHT, SDLK_RIGHT, 39},
        {"down", SDL_SCANCODE_DOWN, SDLK_DOWN, 40},
        {"Page up", SDL_SCANCODE_PAGEUP, SDLK_PAGEUP, 33},
        {"End", SDL_SCANCODE_END, SDLK_END, 35},
        {"Delete", SDL_SCANCODE_DELETE, SDLK_DELETE, 46},
        {"F1", SDL_SCANCODE_F1, SDLK_F1, 112},
        {"F12", SDL_SCANCODE_F12, SDLK_F12, 123},
        {"F13", SDL_SCANCODE_F13, SDLK_F13, 124},
        {"F24", SDL_SCANCODE_F24, SDLK_F24, 135},
        {"semicolon", SDL_SCANCODE_SEMICOLON, SDLK_SEMICOLON, 186},
        {"equals", SDL_SCANCODE_EQUALS, SDLK_EQUALS, 187},
        {"minus", SDL_SCANCODE_MINUS, SDLK_MINUS, 189},
        {"full stop", SDL_SCANCODE_PERIOD, SDLK_PERIOD, 190},
        {"slash", SDL_SCANCODE_SLASH, SDLK_SLASH, 191},
        {"grave accent", SDL_SCANCODE_GRAVE, SDLK_BACKQUOTE, 192},
        {"left bracket", SDL_SCANCODE_LEFTBRACKET, SDLK_LEFTBRACKET, 219},
        {"backslash", SDL_SCANCODE_BACKSLASH, SDLK_BACKSLASH, 220},
        {"German number sign", SDL_SCANCODE_NONUSHASH, SDLK_HASH, 220},
        {"apostrophe", SDL_SCANCODE_APOSTROPHE, SDLK_QUOTE, 222},
        {"German o with dots", SDL_SCANCODE_SEMICOLON, 0xf6, 186},
        {"key beside left Shift", SDL_SCANCODE_NONUSBACKSLASH, SDLK_LESS, 226},
        {"Menu", SDL_SCANCODE_APPLICATION, SDLK_APPLICATION, 93},
        {"volume up, the desktop's own", SDL_SCANCODE_VOLUMEUP, SDLK_VOLUMEUP, 0},
        {"nothing", 0, 0, 0},
        {"beyond every table", 100000, -7, 0},
    };
    for (const Case& key : cases) {
        EXPECT_EQ(VirtualKeyCode({key.scancode, key.keycode, false, false}), key.code) << key.what;
    }
}

TEST(Keys, KeypadFollowsNumLock) {
    const struct {
        int scancode;
        int digit;
        int navigation;
    } rows[] = {
        {SDL_SCANCODE_KP_0, 96, 45},       {SDL_SCANCODE_KP_1, 97, 35},
        {SDL_SCANCODE_KP_2, 98, 40},       {SDL_SCANCODE_KP_3, 99, 34},
        {SDL_SCANCODE_KP_4, 100, 37},      {SDL_SCANCODE_KP_5, 101, 12},
        {SDL_SCANCODE_KP_6, 102, 39},      {SDL_SCANCODE_KP_7, 103, 36},
        {SDL_SCANCODE_KP_8, 104, 38},      {SDL_SCANCODE_KP_9, 105, 33},
        {SDL_SCANCODE_KP_PERIOD, 110, 46},
    };
    for (const auto& row : rows) {
        const int keycode = SDL_SCANCODE_TO_KEYCODE(row.scancode);
        EXPECT_EQ(VirtualKeyCode({row.scancode, keycode, true, false}), row.digit);
        EXPECT_EQ(VirtualKeyCode({row.scancode, keycode, false, false}), row.navigation);
        EXPECT_EQ(VirtualKeyCode({row.scancode, keycode, true, true}), row.navigation);
        EXPECT_EQ(VirtualKeyCode({row.scancode, keycode, false, true}), row.navigation);
    }
    for (const bool num_lock : {false, true}) {
        EXPECT_EQ(VirtualKeyCode({SDL_SCANCODE_KP_MINUS, SDLK_KP_MINUS, num_lock, false}), 109);
    }
}

// No letter or digit may be unreachable, whatever of the ordinary keys lies where.
TEST(Keys, EveryLetterAndDigitHasItsOwnCode) {
    std::set<int> codes;
    for (int scancode = SDL_SCANCODE_A; scancode <= SDL_SCANCODE_0; ++scancode) {
        codes.insert(VirtualKeyCode({scancode, 0, false, false}));
    }
    EXPECT_EQ(codes.size(), 36u);
    EXPECT_EQ(*codes.begin(), 48);
    EXPECT_EQ(*codes.rbegin(), 90);
}

TEST(Keys, ModifiersAreKnown) {
    const std::set<int> modifiers = {16, 17, 18, 91, 92};
    for (int code = 0; code < 256; ++code) {
        EXPECT_EQ(IsModifier(code), modifiers.contains(code)) << code;
    }
}

}  // namespace
}  // namespace tamlo
