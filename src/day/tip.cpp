#include "day/tip.h"

#include <algorithm>

namespace tamlo {

double Tip(double price, double expected, double trip_time) {
    const double percent = std::min(18 + (expected - trip_time) / 25, 30.0);
    const double tip = price * percent / 100;
    return tip < 0 ? 0.02 : tip;
}

std::string ItemPhrase(std::string_view order_text) {
    constexpr std::size_t opening = 25;  // " There is an order for ", a digit and a blank
    constexpr std::string_view item = "tamlo";
    const std::string_view rest = order_text.substr(std::min(opening, order_text.size()));
    const std::size_t at = rest.find(item);
    return std::string(at == rest.npos ? rest : rest.substr(0, at + item.size() + 1));
}

}  // namespace tamlo
