// Arrays indexed from 1, as the game counts streets, orders and customers' voices.
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>

namespace tamlo {

/// An array of `n` elements with indices 1 to n. An index outside throws std::out_of_range.
template <typename T, std::size_t n>
class OneBased {
  public:
    constexpr T& operator()(int index) { return items_[Checked(index)]; }
    constexpr const T& operator()(int index) const { return items_[Checked(index)]; }

    static constexpr int size() { return static_cast<int>(n); }
    constexpr void fill(const T& value) { items_.fill(value); }
    constexpr auto begin() { return items_.begin(); }
    constexpr auto end() { return items_.end(); }
    constexpr auto begin() const { return items_.begin(); }
    constexpr auto end() const { return items_.end(); }

  private:
    static constexpr std::size_t Checked(int index) {
        if (index < 1 || index > size()) throw std::out_of_range("no such entry in a table");
        return static_cast<std::size_t>(index) - 1;
    }

    std::array<T, n> items_{};
};

}  // namespace tamlo
