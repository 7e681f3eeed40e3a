#include "app/arguments.h"

#include <iostream>

namespace tamlo {

std::optional<int> AnswerArguments(int argc, const char* const* argv, std::string_view program,
                                   std::string_view purpose) {
    constexpr int wrong_use = 2;
    if (argc <= 1) return std::nullopt;
    const bool help = argc == 2 && std::string_view(argv[1]) == "--help";
    (help ? std::cout : std::cerr) << "usage: " << program << "   " << purpose << std::endl;
    return help ? 0 : wrong_use;
}

}  // namespace tamlo
