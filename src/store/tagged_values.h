// The encoding of numbers in the saved game and the record: a 16-bit type tag, then the value, both
// little-endian.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tamlo {

enum class Tag : std::uint16_t {
    empty = 0,    ///< no bytes; reads as 0
    integer = 2,  ///< 16-bit signed
    large = 3,    ///< 32-bit signed
    single = 4,   ///< 32-bit IEEE
    number = 5,   ///< 64-bit IEEE
};

void AppendNumber(std::string& bytes, double value);
/// Tagged as a 16-bit integer if it fits, else as a 32-bit one.
void AppendInteger(std::string& bytes, std::int32_t value);
void AppendLarge(std::string& bytes, std::int32_t value);

/// Reads tagged values one after the other. Any tag is accepted for any number.
class TaggedReader {
  public:
    explicit TaggedReader(std::string_view bytes) : bytes_(bytes) {}

    /// The next value; nothing if the bytes end, the tag is unknown or the number is not finite.
    std::optional<double> Number();
    /// The same as a whole number within these bounds: a fraction is rounded, a half to the even
    /// number.
    std::optional<int> Whole(int lowest, int highest);
    bool AtEnd() const { return bytes_.empty(); }

  private:
    template <typename T>
    std::optional<double> Take();

    std::string_view bytes_;
};

}  // namespace tamlo
