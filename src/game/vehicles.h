// The three vehicles: when the driver gets them, how fast they go, how far they deliver, and their
// sounds.
#pragma once

#include <array>
#include <string_view>

namespace tamlo {

struct Vehicle {
    std::string_view short_name;
    int earned_above;              ///< dollars that the driver of the previous vehicle must exceed
    std::string_view promotion;    ///< spoken when the driver gets it
    int top_speed;                 ///< miles per hour
    std::string_view too_fast;     ///< spoken for a higher speed
    int area_streets, area_roads;  ///< size of the delivery area, around the restaurant
    std::string_view start_sound, go_sound, idle_sound;
};

/// By level, from 1.
inline constexpr std::array<Vehicle, 3> vehicles = {{
    {"scooter", 0, "", 45,
     " you can only get the old tamlo vorrel scooter up to 45 miles an hour. ", 30, 15, "tamlo2",
     "tamlo4", "tamlo3"},
    {"psychedelic dune buggy", 100,
     " You have been promoted from the tamlo vorrel scooter to the tamlo vorrel psychedelic dune "
     "buggy. ",
     55, " You can only get the tamlo vorrel psychedelic dune buggy up to 55 miles an hour. ", 65,
     30, "tamlo26", "tamlo28", "tamlo27"},
    {"psychedelic van", 500,
     " You have been promoted from the tamlo vorrel psychedelic dune buggy  to the tamlo vorrel "
     "psychedelic van. ",
     65, " You can only get the tamlo vorrel psychedelic van up to 65 miles an hour. ", 102, 45,
     "tamlo30", "tamlo32", "tamlo31"},
}};

/// The vehicle of a level 1 to 3; null for any other.
constexpr const Vehicle* VehicleOf(int level) {
    if (level < 1 || level > static_cast<int>(vehicles.size())) return nullptr;
    return &vehicles[static_cast<std::size_t>(level) - 1];
}

}  // namespace tamlo
