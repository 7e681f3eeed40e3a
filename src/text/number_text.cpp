#include "text/number_text.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace tamlo {
namespace {

/// A number's decimal text in its parts, rounded.
struct Decimal {
    bool negative = false;
    std::string whole;     // without leading zeros, so "" for 0
    std::string fraction;  // exactly as many digits as asked for
};

/// Adds one to the last of the digits of both parts.
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
    char text[400];  // the longest finite double in fixed form has 327 characters
    const auto result = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed);
    return std::string(text, result.ptr);
}

std::string Plain(int number) {
    return std::to_string(number);
}

double Rounded(double number, int decimals) {
    const Decimal rounded = Round(number, decimals);
    const std::string text =
        (rounded.negative ? "-0" : "0") + rounded.whole + "." + rounded.fraction + "0";
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
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
