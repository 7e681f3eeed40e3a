// The seventeen random scenes of the road, and how each moves through the stereo field.
#pragma once

#include <array>
#include <string_view>

namespace tamlo {

enum class Movement {
    ambulance,      ///< centred, swells and fades
    slow_crossing,  ///< loops across in wide steps, starting at the centre
    centred,        ///< played once where the driver is
    truck,          ///< as at its fixed corner
    crossing,       ///< loops across in fine steps
    bus,            ///< comes to the centre, halts, goes on
    five_in_line,   ///< five copies cross, one after the other
};

struct RoadScene {
    std::string_view sound;
    Movement movement;
    int width = 0;  ///< pan where it appears and, negated, where it leaves; hundredths of a decibel
    int step = 0;   ///< pan steps of the crossing
};

/// Numbered from 1 in this order.
inline constexpr std::array<RoadScene, 17> road_scenes = {{
    {"tamlo23", Movement::ambulance},
    {"tamlo24", Movement::slow_crossing, 1500, 150},
    {"tamlo29", Movement::slow_crossing, 1500, 150},
    {"tamlo33", Movement::centred},
    {"tamlo34", Movement::truck},
    {"tamlo35", Movement::crossing, 1000, 25},
    {"tamlo36", Movement::crossing, 1500, 50},
    {"tamlo37", Movement::crossing, 1500, 50},
    {"tamlo39", Movement::crossing, 1500, 25},
    {"tamlo40", Movement::crossing, 1500, 25},
    {"tamlo82", Movement::crossing, 1500, 50},
    {"tamlo83", Movement::crossing, 1500, 50},
    {"tamlo84", Movement::crossing, 1500, 50},
    {"tamlo86", Movement::bus, 1500, 25},
    {"tamlo87", Movement::five_in_line, 2000, 47},
    {"tamlo88", Movement::crossing, 1500, 35},
    {"tamlo89", Movement::crossing, 1500, 75},
}};

}  // namespace tamlo
