// What the spoken tools beside the game have in common.
#pragma once

#include <functional>
#include <string>

#include "speech/menus.h"

namespace tamlo {

class Form1;

/// Opens the window with this caption, the sound and the voice, with the player's settings.
void OpenTool(Form1& form, const char* caption);

/// Speaks `welcome`, which F1 repeats, and runs the list until Escape; `chosen` is called with each
/// item that Enter chooses, from 1. Leaves only by EndOfProcess.
[[noreturn]] void RunToolList(Form1& form, ListMenu list, const std::string& welcome,
                              const std::function<void(int item)>& chosen);

}  // namespace tamlo
