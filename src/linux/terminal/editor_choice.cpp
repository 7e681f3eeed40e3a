// Splitting the editor variables into argument lists.
#include "linux/terminal/editor_choice.h"

#include <algorithm>

namespace tamlo {

std::vector<std::string> SplitAtBlanks(std::string_view command) {
    constexpr std::string_view blanks = " \t\r\n";
    std::vector<std::string> words;
    for (;;) {
        const std::size_t first = command.find_first_not_of(blanks);
        if (first == std::string_view::npos) return words;
        command.remove_prefix(first);
        const std::size_t end = std::min(command.find_first_of(blanks), command.size());
        words.emplace_back(command.substr(0, end));
        command.remove_prefix(end);
    }
}

std::vector<std::vector<std::string>> EditorCommands(std::string_view visual,
                                                     std::string_view editor,
                                                     const std::string& path) {
    std::vector<std::vector<std::string>> commands;
    for (const std::string_view command :
         {visual, editor, std::string_view("nano"), std::string_view("vi")}) {
        std::vector<std::string> words = SplitAtBlanks(command);
        if (words.empty()) continue;
        words.push_back(path);
        commands.push_back(std::move(words));
    }
    return commands;
}

}  // namespace tamlo
