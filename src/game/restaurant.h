// Where the restaurant is: on the south side of a road, between two streets.
#pragma once

namespace tamlo {

inline constexpr int restaurant_road = 23;
inline constexpr int restaurant_west_street = 51;
inline constexpr int restaurant_east_street = 52;

/// Whether the corner is one of the restaurant's two.
constexpr bool IsRestaurant(int street, int road) {
    return road == restaurant_road &&
           (street == restaurant_west_street || street == restaurant_east_street);
}

}  // namespace tamlo
