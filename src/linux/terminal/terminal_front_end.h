// The message box and the editor in a terminal.
#pragma once

#include <string>

#include "linux/terminal/printed_lines.h"
#include "linux/terminal/terminal_mode.h"
#include "services/events.h"

namespace tamlo {

/// Prints the text and waits for Enter, Space or Escape, as the window's box does.
void ShowMessage(const std::string& text, Events& events, LinePrinter& printer);

/// Runs the player's editor on the file, in the terminal that `mode` prepares, and returns when
/// it has ended; keys typed meanwhile are its own. False if no editor could be started.
bool EditInTerminal(const std::string& path, TerminalMode& mode, LinePrinter& printer);

}  // namespace tamlo
