#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>

namespace tamlo {
namespace {

// Streams of the classic locale are used instead of std::to_chars and std::from_chars: not every
// standard library has these for double.

/// The number as "d.ddde-xx", rounded to so many digits.
std::string Scientific(double number, int digits) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << std::scientific << std::setprecision(digits - 1) << number;
    return out.str();
}

/// Reads a text that has the form of a number; nothing if the number is too large.
std::optional<double> Parse(const std::string& text) {
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    double number = 0;
    in >> number;
    // Some libraries also report a failure for tiny numbers, which are read all the same.
    const bool too_large = in.fail() && std::abs(number) >= std::numeric_limits<double>::max();
    if (too_large || !std::isfinite(number)) return std::nullopt;
    return number;
}

/// "d.ddde-xx" with one added to its last digit; the exponent is kept.
std::string NextUp(std::string text) {
    for (std::size_t i = text.find('e'); i-- > 0;) {
        if (text[i] == '.') continue;
        if (text[i] != '9') {
            ++text[i];
            return text;
        }
        text[i] = '0';
    }
    return "1" + text;
}

/// A positive number with the fewest digits that distinguish it from its neighbours.
std::string ShortestScientific(double number) {
    // The first try gives every decimal of up to 15 digits exactly. Subnormal numbers have fewer
    // digits.
    for (int digits = std::isnormal(number) ? 15 : 1; digits < 17; ++digits) {
        std::string nearest = Scientific(number, digits);
        if (Parse(nearest) == number) return nearest;
        // A power of two has its next larger neighbour twice as far away as the next smaller one.
        std::string above = NextUp(nearest);
        if (Parse(above) == number) return above;
    }
    return Scientific(number, 17);
}

/// "d.ddde-xx" without the exponent and without zeros at the end.
std::string WithoutExponent(const std::string& scientific) {
    const std::size_t e = scientific.find('e');
    int exponent = std::stoi(scientific.substr(e + 1));
    std::string digits = scientific.substr(0, e);
    const std::size_t point = digits.find('.');
    if (point != std::string::npos) {
        digits.erase(point, 1);
        exponent += static_cast<int>(point) - 1;
    }
    digits.erase(digits.find_last_not_of('0') + 1);
    if (exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    return digits.insert(static_cast<std::size_t>(exponent) + 1, ".");
}

/// A number's rounded decimal text, in parts.
struct Decimal {
    bool negative = false;
    std::string whole;     // without leading zeros, so "" for 0
    std::string fraction;  // exactly as many digits as requested
};

/// Adds one to the last digit, and carries.
void CarryUp(Decimal& number) {
    for (std::string* part : {&number.fraction, &number.whole}) {
        for (auto digit = part->rbegin(); digit != part->rend(); ++digit) {
            if (*digit != '9') {
                ++*digit;
                return;
            }
            *digit = '0';
        }
    }
    number.whole.insert(0, "1");
}

Decimal Round(double number, int decimals) {
    std::string text = Plain(number);
    Decimal result;
    if (text.front() == '-') {
        result.negative = true;
        text.erase(0, 1);
    }
    const std::size_t point = text.find('.');
    result.whole = text.substr(0, point);
    if (result.whole == "0") result.whole.clear();
    const std::string fraction = point == std::string::npos ? "" : text.substr(point + 1);
    const auto kept = static_cast<std::size_t>(decimals);
    result.fraction = fraction.substr(0, kept);
    result.fraction.resize(kept, '0');
    if (fraction.size() > kept && fraction[kept] >= '5') CarryUp(result);
    return result;
}

std::string Grouped(const std::string& digits) {
    std::string grouped;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) grouped += ',';
        grouped += digits[i];
    }
    return grouped;
}

bool IsZero(const Decimal& number) {
    return (number.whole + number.fraction).find_first_not_of('0') == std::string::npos;
}

std::string Sign(const Decimal& number) {
    return number.negative && !IsZero(number) ? "-" : "";
}

}  // namespace

std::string Plain(double number) {
    if (!std::isfinite(number) || number == 0) return "0";
    const std::string sign = number < 0 ? "-" : "";
    number = std::abs(number);
    if (number != std::trunc(number)) return sign + WithoutExponent(ShortestScientific(number));
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << std::fixed << std::setprecision(0) << number;
    return sign + out.str();
}

std::string Plain(int number) {
    return std::to_string(number);
}

std::optional<double> ReadNumber(std::string_view text) {
    const auto skip_digits = [](std::string_view& rest) {
        const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
        rest.remove_prefix(digits);
        return digits;
    };
    std::string_view rest = text;
    if (rest.starts_with('-')) rest.remove_prefix(1);
    std::size_t digits = skip_digits(rest);
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        digits += skip_digits(rest);
    }
    if (digits == 0) return std::nullopt;
    if (rest.starts_with('e') || rest.starts_with('E')) {
        rest.remove_prefix(1);
        if (rest.starts_with('-') || rest.starts_with('+')) rest.remove_prefix(1);
        if (skip_digits(rest) == 0) return std::nullopt;
    }
    if (!rest.empty()) return std::nullopt;
    const std::optional<double> number = Parse(std::string(text));
    const std::string_view mantissa = text.substr(0, text.find_first_of("eE"));
    const bool too_small = number == 0 && mantissa.find_first_of("123456789") != mantissa.npos;
    return too_small ? std::nullopt : number;
}

double Rounded(double number, int decimals) {
    const Decimal rounded = Round(number, decimals);
    const std::string text =
        (rounded.negative ? "-0" : "0") + rounded.whole + "." + rounded.fraction + "0";
    const double value = Parse(text).value_or(0);
    return value == 0 ? 0 : value;
}

std::string MoneyPicture(double amount) {
    Decimal rounded = Round(amount, 2);
    const std::string sign = Sign(rounded);
    while (!rounded.fraction.empty() && rounded.fraction.back() == '0') rounded.fraction.pop_back();
    return sign + Grouped(rounded.whole) + "." + rounded.fraction;
}

std::string CountPicture(double count) {
    const Decimal rounded = Round(count, 0);
    return Sign(rounded) + Grouped(rounded.whole);
}

std::string MoneyText(double dollars) {
    std::string text = MoneyPicture(dollars);
    if (text.size() - text.find('.') == 2) text += '0';
    return " $" + text;
}

}  // namespace tamlo
