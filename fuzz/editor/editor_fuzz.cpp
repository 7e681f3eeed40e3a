// Any bytes as $VISUAL and $EDITOR: commands without empty words, every word kept, ours last.
#include <string>
#include <vector>

#include "fuzzing.h"
#include "linux/terminal/editor_choice.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    constexpr std::string_view blanks = " \t\r\n";
    const std::string_view command = TextOf(bytes, size);
    std::string words;
    for (const std::string& word : SplitAtBlanks(command)) {
        Check(!word.empty() && word.find_first_of(blanks) == std::string::npos);
        words += word;
    }
    std::string without_blanks;
    for (const char c : command) {
        if (blanks.find(c) == std::string_view::npos) without_blanks += c;
    }
    Check(words == without_blanks);

    const auto commands =
        EditorCommands(command.substr(0, size / 2), command.substr(size / 2), "f");
    Check(commands.size() >= 2 && commands.size() <= 4);
    for (const auto& one : commands) Check(one.size() >= 2 && one.back() == "f");
    Check(commands[commands.size() - 2].front() == "nano" && commands.back().front() == "vi");
    return 0;
}
