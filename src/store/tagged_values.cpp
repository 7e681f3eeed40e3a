#include "store/tagged_values.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace tamlo {
namespace {

static_assert(std::endian::native == std::endian::little, "values are copied as they stand");

template <typename T>
void Append(std::string& bytes, T value) {
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}

}  // namespace

void AppendNumber(std::string& bytes, double value) {
    Append(bytes, Tag::number);
    Append(bytes, value);
}

void AppendLarge(std::string& bytes, std::int32_t value) {
    Append(bytes, Tag::large);
    Append(bytes, value);
}

void AppendInteger(std::string& bytes, std::int32_t value) {
    using Short = std::numeric_limits<std::int16_t>;
    if (value < Short::min() || value > Short::max()) return AppendLarge(bytes, value);
    Append(bytes, Tag::integer);
    Append(bytes, static_cast<std::int16_t>(value));
}

template <typename T>
std::optional<double> TaggedReader::Take() {
    T value;
    if (bytes_.size() < sizeof value) return std::nullopt;
    std::memcpy(&value, bytes_.data(), sizeof value);
    bytes_.remove_prefix(sizeof value);
    const auto number = static_cast<double>(value);
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<double> TaggedReader::Number() {
    const auto tag = Take<std::uint16_t>();
    if (!tag) return std::nullopt;
    switch (static_cast<Tag>(*tag)) {
        case Tag::empty: return 0;
        case Tag::integer: return Take<std::int16_t>();
        case Tag::large: return Take<std::int32_t>();
        case Tag::single: return Take<float>();
        case Tag::number: return Take<double>();
    }
    return std::nullopt;
}

std::optional<int> TaggedReader::Whole(int lowest, int highest) {
    const auto number = Number();
    if (!number) return std::nullopt;
    const double whole = std::nearbyint(*number);
    if (whole < lowest || whole > highest) return std::nullopt;
    return static_cast<int>(whole);
}

}  // namespace tamlo
