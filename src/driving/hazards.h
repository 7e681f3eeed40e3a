// The fixed hazards of the road, and the roads that the police never patrol.
#pragma once

#include <array>

#include "game/restaurant.h"

namespace tamlo {

enum class HazardKind { crossing, truck, trap, hospital };

struct Hazard {
    int street, road;
    HazardKind kind;
};

/// In the order in which they are checked. The check goes on after a hospital, and after a trap
/// that is passed at the speed limit.
inline constexpr std::array<Hazard, 9> hazards = {{
    {56, restaurant_road, HazardKind::crossing},  ///< Fifth Avenue and Center
    {45, restaurant_road, HazardKind::crossing},  ///< Seventh Street and Center
    {51, 25, HazardKind::truck},                  ///< First Street and Cadillac
    {54, 24, HazardKind::trap},                   ///< Third Avenue and Buick
    {47, 22, HazardKind::trap},                   ///< Fifth Street and Apple
    {53, 19, HazardKind::trap},                   ///< Second Avenue and Cedar
    {52, 19, HazardKind::hospital},               ///< First Avenue and Cedar
    {46, 27, HazardKind::trap},                   ///< Sixth Street and Chrysler
    {46, 26, HazardKind::hospital},               ///< Sixth Street and Chevy
}};

inline constexpr double speed_limit = 35;   ///< miles an hour; traps stop drivers above it
inline constexpr double patrol_speed = 40;  ///< patrols may stop drivers above it

/// False on Center, Seventh Street and Fifth Avenue, whatever they are called in the current city.
constexpr bool Patrolled(int street, int road) {
    return road != restaurant_road && street != 45 && street != 56;
}

}  // namespace tamlo
