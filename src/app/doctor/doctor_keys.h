// Trying the keyboard: each key that reaches the game is spoken by its name and its code.
#pragma once

#include <string>

namespace tamlo {

class Form1;

/// What a key with this virtual-key code is called, such as "Enter" or "digit 3".
std::string KeyName(int code);

/// Speaks key after key until Escape comes twice; the names and codes of those pressed.
std::string TryKeys(Form1& form);

}  // namespace tamlo
