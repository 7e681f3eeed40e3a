// What the keys of a braille display mean to the game.
#pragma once

#define BRLAPI_NO_SINGLE_SESSION
#include <brlapi.h>

#include <vector>

namespace tamlo {

struct BrailleKey {
    enum class Act { none, press, forward, back, newest };
    Act act = Act::none;
    std::vector<int> keys = {};  ///< virtual-key codes to press one after the other
};

/// The meaning of a key code: up and down a line, a routing key, or what a braille keyboard types
/// press keys; panning turns pages.
BrailleKey MeaningOfKey(brlapi_keyCode_t code);

/// The commands among the key codes that mean something, without the routing keys.
std::vector<brlapi_keyCode_t> BrlapiCommands();

}  // namespace tamlo
