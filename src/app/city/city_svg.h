// The city as a drawing for those who help a player and can see.
#pragma once

#include <string>
#include <vector>

namespace tamlo {

/// An SVG file: all streets and roads with their names, the restaurant, the fixed hazards and a
/// legend. `names`: the 147 of a city, in UTF-8, the roads first.
std::string CityAsSvg(const std::string& title, const std::vector<std::string>& names);

}  // namespace tamlo
