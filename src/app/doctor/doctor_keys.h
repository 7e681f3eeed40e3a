// Trying the keyboard: each key that reaches the game is spoken by its name and its code.
#pragma once

#include <string>

namespace tamlo {

class Form1;

/// The name of the key with this virtual-key code, such as "Enter" or "digit 3".
std::string KeyName(int code);

/// Speaks each key pressed until Escape comes twice; returns the names and codes of the keys.
std::string TryKeys(Form1& form);

}  // namespace tamlo
