// Programs that take no arguments.
#pragma once

#include <optional>
#include <string_view>

namespace tamlo {

/// The exit status with which a program that takes no arguments ends at once: after `--help` it has
/// printed its synopsis, after any other word the synopsis on standard error. Nothing if there are
/// no arguments, and the program is to run.
std::optional<int> AnswerArguments(int argc, const char* const* argv, std::string_view program,
                                   std::string_view purpose);

}  // namespace tamlo
