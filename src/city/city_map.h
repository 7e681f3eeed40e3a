// A tactile map of the middle of the city: sheets with a mark for each corner.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "game/restaurant.h"

namespace tamlo {

inline constexpr int sheet_side = 10;  ///< streets, and roads, of a sheet

struct MapMark {
    char cell;  ///< ASCII braille
    std::string_view meaning;
};

/// The marks; the first is that of a plain corner.
inline constexpr std::array<MapMark, 6> map_marks = {{{'-', "a corner"},
                                                      {'=', "the restaurant's corners"},
                                                      {'X', "railway crossing"},
                                                      {'T', "truck in the way"},
                                                      {'P', "police trap above 35"},
                                                      {'H', "hospital, ambulance"}}};

/// The mark of a corner: street 1 to 102, road 1 to 45.
char MarkOf(int street, int road);

struct MapSheet {
    std::string_view name;
    int first_street, first_road;  ///< at its north-west corner
};

/// The sheets meet at the restaurant and contain every fixed hazard.
inline constexpr std::array<MapSheet, 4> map_sheets = {
    {{"north west", restaurant_west_street - sheet_side + 1, restaurant_road - sheet_side},
     {"north east", restaurant_east_street, restaurant_road - sheet_side},
     {"south west", restaurant_west_street - sheet_side + 1, restaurant_road},
     {"south east", restaurant_east_street, restaurant_road}}};

/// The marks of a sheet, one row per road.
std::array<std::string, sheet_side> Marks(const MapSheet& sheet);

}  // namespace tamlo
