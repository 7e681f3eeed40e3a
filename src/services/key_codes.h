// The keys the game tests, as they stand in the pending key `g`: decimal virtual-key codes.
#pragma once

#include <string_view>

namespace tamlo::keys {

inline constexpr std::string_view backspace = "8";
inline constexpr std::string_view enter = "13";
inline constexpr std::string_view shift = "16";
inline constexpr std::string_view escape = "27";
inline constexpr std::string_view left = "37";
inline constexpr std::string_view up = "38";
inline constexpr std::string_view right = "39";
inline constexpr std::string_view down = "40";
inline constexpr std::string_view f1 = "112";
inline constexpr std::string_view f2 = "113";
inline constexpr std::string_view f3 = "114";
inline constexpr std::string_view f4 = "115";
inline constexpr std::string_view f5 = "116";
inline constexpr std::string_view f6 = "117";

}  // namespace tamlo::keys
