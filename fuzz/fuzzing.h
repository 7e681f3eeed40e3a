// What the fuzz targets share: the input as a text or as numbers, and a check that ends the run.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace tamlo {

inline std::string_view TextOf(const std::uint8_t* bytes, std::size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

/// Takes a value's bytes off the input; what is missing of them is zero.
template <typename T>
T TakeValue(std::string_view& input) {
    T value{};
    const std::size_t taken = input.size() < sizeof value ? input.size() : sizeof value;
    std::memcpy(&value, input.data(), taken);
    input.remove_prefix(taken);
    return value;
}

/// What must hold for every input. The fuzzer and the replay both report the abort.
inline void Check(bool holds) {
    if (!holds) std::abort();
}

}  // namespace tamlo
