#include "city/street_names.h"

namespace tamlo {
namespace {

constexpr int middle = most_streets / 2;  // streets on each side of the restaurant

constexpr std::array<std::string_view, 20> first_twenty = {
    "First",     "Second",    "Third",       "Fourth",     "Fifth",      "Sixth",      "Seventh",
    "Eighth",    "Ninth",     "Tenth",       "Eleventh",   "Twelfth",    "Thirteenth", "Fourteenth",
    "Fifteenth", "Sixteenth", "Seventeenth", "Eighteenth", "Nineteenth", "Twentieth"};

struct Ten {
    std::string_view round, prefix;
};
constexpr std::array<Ten, 4> tens = {{{"Twentieth", "Twenty "},
                                      {"Thirtieth", "Thirty "},
                                      {"Fortieth", "Forty "},
                                      {"Fiftieth", "Fifty "}}};

/// 1 to 59 as a capitalised word.
std::string Ordinal(int number) {
    if (number <= 20) return std::string(first_twenty[static_cast<std::size_t>(number) - 1]);
    const Ten& ten = tens[static_cast<std::size_t>(number / 10) - 2];
    if (number % 10 == 0) return std::string(ten.round);
    return std::string(ten.prefix) + Ordinal(number % 10);
}

}  // namespace

std::string DefaultStreet(int street) {
    return street <= middle ? Ordinal(middle + 1 - street) + " Street"
                            : Ordinal(street - middle) + " Avenue";
}

}  // namespace tamlo
