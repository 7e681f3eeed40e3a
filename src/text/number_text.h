// Numbers as text, as the game's sentences have them: plain, as money, as counts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamlo {

/// Shortest decimal text that reads back as the same number, never with an exponent; "0" for
/// what is not finite. Whole numbers are written with all their digits.
std::string Plain(double number);
std::string Plain(int number);

/// The number that a text is in decimal, such as "-1.5" or "2e3"; nothing if it is none, or too
/// large or too small for a double.
std::optional<double> ReadNumber(std::string_view text);

/// Rounded to so many decimals (0 to 15). Halves in the number's shortest decimal text are rounded
/// away from zero: 0.125 to .13 and 1.005 to 1.01, as a person would round them.
double Rounded(double number, int decimals);

/// The picture "#,###,###.##": at most two decimals without trailing zeros, groups of three, no
/// leading zero, always with the point: 0.5 is ".5", 20 is "20.", 1234.5 is "1,234.5", 0 is ".".
std::string MoneyPicture(double amount);

/// The picture "###,###": a whole number in groups of three; 0 is the empty text.
std::string CountPicture(double count);

/// An amount of dollars as it is spoken: " $17.45", " $34.90", " $20.", " $.50".
std::string MoneyText(double dollars);

}  // namespace tamlo
