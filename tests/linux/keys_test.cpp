// Which keys count by their meaning and which by their place, on several layouts.
#include "linux/window/keys.h"

#include <SDL2/SDL_keycode.h>
#include <SDL2/SDL_scancode.h>
#include <gtest/gtest.h>

#include <set>

namespace tamlo {
namespace {

TEST(Keys, CountByMeaningOrPlace) {
    const struct {
        const char* what;
        int scancode;
        int keycode;
        int code;
    } cases[] = {
        {"French A stands at Q", SDL_SCANCODE_Q, SDLK_a, 65},
        {"French comma stands at M", SDL_SCANCODE_M, SDLK_COMMA, 188},
        {"Russian ef stands at A", SDL_SCANCODE_A, 0x444, 65},
        {"Russian zhe stands at semicolon", SDL_SCANCODE_SEMICOLON, 0x436, 186},
        {"French 1 is an ampersand", SDL_SCANCODE_1, SDLK_AMPERSAND, 49},
        {"French 0 is an a with grave", SDL_SCANCODE_0, 0xe0, 48},
        {"keypad Enter", SDL_SCANCODE_KP_ENTER, SDLK_KP_ENTER, 13},
        {"Caps Lock made a Control", SDL_SCANCODE_CAPSLOCK, SDLK_LCTRL, 17},
        {"right Alt as a layout shift", SDL_SCANCODE_RALT, SDLK_MODE, 18},
        {"Space that the layout makes a narrow one", SDL_SCANCODE_SPACE, 0x202f, 32},
        {"F13, the first of the second row", SDL_SCANCODE_F13, SDLK_F13, 124},
        {"German number sign", SDL_SCANCODE_NONUSHASH, SDLK_HASH, 220},
        {"key beside left Shift", SDL_SCANCODE_NONUSBACKSLASH, SDLK_LESS, 226},
        {"volume up, the desktop's own", SDL_SCANCODE_VOLUMEUP, SDLK_VOLUMEUP, 0},
        {"beyond every table", 100000, -7, 0},
    };
    for (const auto& key : cases) {
        EXPECT_EQ(VirtualKeyCode({key.scancode, key.keycode, false, false}), key.code) << key.what;
    }
}

TEST(Keys, KeypadHasDigitsWithNumLockAndWithoutShiftOnly) {
    for (int scancode = SDL_SCANCODE_KP_1; scancode <= SDL_SCANCODE_KP_0; ++scancode) {
        const int keycode = SDL_SCANCODE_TO_KEYCODE(scancode);
        EXPECT_EQ(VirtualKeyCode({scancode, keycode, true, false}),
                  96 + (scancode - SDL_SCANCODE_KP_1 + 1) % 10);
        std::set<int> others;
        others.insert(VirtualKeyCode({scancode, keycode, false, false}));
        others.insert(VirtualKeyCode({scancode, keycode, true, true}));
        others.insert(VirtualKeyCode({scancode, keycode, false, true}));
        EXPECT_EQ(others.size(), 1U);
        EXPECT_LT(*others.begin(), 48);  // navigation
    }
}

// No letter or digit may be unreachable, whatever of the ordinary keys lies where.
TEST(Keys, EveryLetterAndDigitHasItsOwnCode) {
    std::set<int> codes;
    for (int scancode = SDL_SCANCODE_A; scancode <= SDL_SCANCODE_0; ++scancode) {
        codes.insert(VirtualKeyCode({scancode, 0, false, false}));
    }
    EXPECT_EQ(codes.size(), 36U);
    EXPECT_EQ(*codes.begin(), 48);
    EXPECT_EQ(*codes.rbegin(), 90);
}

}  // namespace
}  // namespace tamlo
