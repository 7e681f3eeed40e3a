// Which editor to run in a terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

/// Words of a command, split at blanks; quotes mean nothing special.
std::vector<std::string> SplitAtBlanks(std::string_view command);

/// The commands to try one after the other for editing the file `path`: $VISUAL, $EDITOR, nano,
/// vi. The variables' values may be empty.
std::vector<std::vector<std::string>> EditorCommands(std::string_view visual,
                                                     std::string_view editor,
                                                     const std::string& path);

}  // namespace tamlo
