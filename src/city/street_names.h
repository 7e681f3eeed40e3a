// The default names of the city: trees north of Center, makers of cars south of it, numbered
// streets to the west and avenues to the east.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "game/city_fields.h"

namespace tamlo {

/// North to south.
inline constexpr std::array<std::string_view, most_roads> default_roads = {
    "Willow",     "Walnut",   "Sycamore",  "Spruce",     "Redwood",  "Pine",       "Palm",
    "Orange",     "Oak",      "Mesquite",  "Maple",      "Mahogany", "Holly",      "Evergreen",
    "Eucalyptus", "Elm",      "Coconut",   "Cherry",     "Cedar",    "Buckeye",    "Birch",
    "Apple",      "Center",   "Buick",     "Cadillac",   "Chevy",    "Chrysler",   "Corvette",
    "Dodge",      "Ferrari",  "Ford",      "Honda",      "Jaguar",   "Lambergini", "Lincoln",
    "Mazda",      "Mercedes", "Mercury",   "Oldsmobile", "Plymouth", "Pontiac",    "Porsche",
    "Saturn",     "Toyota",   "Volkswagon"};

/// The default name of a north-south street, 1 (west) to 102.
std::string DefaultStreet(int street);

}  // namespace tamlo
