// Several files in one piece of memory, as packaging/web/pack.py writes them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tamlo {

/// Hands out each file's name and bytes, which lie in the pack. False, and none handed out, if it
/// is no pack: a number of files; for each its name, a zero byte and its length; then the bytes of
/// all. Numbers have 32 bits, the lowest first.
bool ReadPack(std::string_view pack,
              const std::function<void(const std::string& name, std::string_view bytes)>& put);

}  // namespace tamlo
