// The three vehicles: how fast they go and how far they deliver.
#pragma once

#include <array>
#include <string_view>

namespace tamlo {

struct Vehicle {
    int top_speed;  // miles an hour
    std::string_view too_fast;
    int area_streets, area_roads;  // size of the delivery area, around the restaurant
    std::string_view short_name;
};

inline constexpr std::array<Vehicle, 3> vehicles = {{
    {45, " you can only get the old tamlo vorrel scooter up to 45 miles an hour. ", 30, 15,
     "scooter"},
    {55, " You can only get the tamlo vorrel psychedelic dune buggy up to 55 miles an hour. ", 65,
     30, "psychedelic dune buggy"},
    {65, " You can only get the tamlo vorrel psychedelic van up to 65 miles an hour. ", 102, 45,
     "psychedelic van"},
}};

/// The vehicle of a level 1 to 3; null for any other.
constexpr const Vehicle* VehicleOf(int level) {
    if (level < 1 || level > static_cast<int>(vehicles.size())) return nullptr;
    return &vehicles[static_cast<std::size_t>(level) - 1];
}

}  // namespace tamlo
