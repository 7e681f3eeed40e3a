// What the restaurant sells: toppings, sizes and prices.
#pragma once

#include <array>
#include <string_view>

namespace tamlo {

inline constexpr std::array<std::string_view, 33> topping_names = {
    "anchovies",    "bacon",        "barbecue pork", "banana peppers",
    "bean sprouts", "black olives", "chicken",       "chocolate chip",
    "extra cheese", "green olives", "green peppers", "ground beef",
    "ham",          "mushroom",     "onion",         "pepperoni",
    "pineapple",    "sausage",      "tomatoes",      "zucchini",
    "meatball",     "shrimp",       "lobster",       "steak",
    "artichoke",    "asparagus",    "broccoli",      "cashew",
    "taco chip",    "spinach",      "sour kraut",    "garbonzo beans",
    "turkey"};

struct TamloSize {
    std::string_view word;
    double base;         ///< dollars per tamlo
    double per_topping;  ///< dollars per topping and tamlo
};

inline constexpr TamloSize extra_large = {" extra large", 17.45, 2.5};
inline constexpr TamloSize large = {" large", 14.95, 2};

}  // namespace tamlo
