// Keys: their virtual-key codes, and the decimal text of these, which the pending key `g` holds.
// Letters and the digits of the top row have the codes of their capital letters and digits in
// ASCII.
#pragma once

#include <cstddef>
#include <string_view>

namespace tamlo::keys {

/// A key, compared with `g` by its text and with a code by its number.
class Key {
  public:
    /// `code` from 0 to 255.
    constexpr explicit Key(int code) : code_(code) {
        if (code >= 100) text_[length_++] = static_cast<char>('0' + code / 100);
        if (code >= 10) text_[length_++] = static_cast<char>('0' + code / 10 % 10);
        text_[length_++] = static_cast<char>('0' + code % 10);
    }

    constexpr operator int() const { return code_; }

    friend constexpr bool operator==(std::string_view pending, const Key& key) {
        return pending == std::string_view(key.text_, key.length_);
    }

  private:
    int code_;
    char text_[3] = {};
    std::size_t length_ = 0;
};

inline constexpr Key backspace{8};
inline constexpr Key tab{9};
inline constexpr Key clear{12};  ///< the keypad's 5 without Num Lock
inline constexpr Key enter{13};
inline constexpr Key shift{16};
inline constexpr Key control{17};
inline constexpr Key alt{18};
inline constexpr Key pause{19};
inline constexpr Key caps_lock{20};
inline constexpr Key escape{27};
inline constexpr Key space{32};
inline constexpr Key page_up{33};
inline constexpr Key page_down{34};
inline constexpr Key end{35};
inline constexpr Key home{36};
inline constexpr Key left{37};
inline constexpr Key up{38};
inline constexpr Key right{39};
inline constexpr Key down{40};
inline constexpr Key print_screen{44};
inline constexpr Key insert{45};
inline constexpr Key delete_key{46};
inline constexpr Key left_super{91};
inline constexpr Key right_super{92};
inline constexpr Key menu{93};
inline constexpr Key keypad_0{96};  ///< keypad_1 to keypad_9 follow
inline constexpr Key keypad_times{106};
inline constexpr Key keypad_plus{107};
inline constexpr Key keypad_separator{108};
inline constexpr Key keypad_minus{109};
inline constexpr Key keypad_point{110};
inline constexpr Key keypad_divide{111};
inline constexpr Key f1{112};
inline constexpr Key f2{113};
inline constexpr Key f3{114};
inline constexpr Key f4{115};
inline constexpr Key f5{116};
inline constexpr Key f6{117};
inline constexpr Key f24{135};  ///< f7 to f23 are numbered in between
inline constexpr Key num_lock{144};
inline constexpr Key scroll_lock{145};
inline constexpr Key semicolon{186};
inline constexpr Key equals{187};
inline constexpr Key comma{188};
inline constexpr Key hyphen{189};
inline constexpr Key full_stop{190};
inline constexpr Key slash{191};
inline constexpr Key grave_accent{192};
inline constexpr Key left_bracket{219};
inline constexpr Key backslash{220};
inline constexpr Key right_bracket{221};
inline constexpr Key apostrophe{222};
inline constexpr Key beside_left_shift{226};

/// Whether the key closes a message box.
constexpr bool ClosesMessage(int code) {
    return code == enter || code == escape || code == space;
}

}  // namespace tamlo::keys
