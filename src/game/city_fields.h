// The fields of the city: where the player is, and the street names in use.
#pragma once

#include <string>

#include "game/one_based.h"

namespace tamlo {

inline constexpr int most_streets = 102;         ///< north-south, counted from the west edge
inline constexpr int most_roads = 45;            ///< east-west, counted from the north edge
inline constexpr int most_streets_files = 1111;  ///< listed at once, including the default file

struct CityFields {
    int rox = 1;  ///< street of the player's corner, 1 to 102
    int roy = 1;  ///< road of the player's corner, 1 to 45
    int roz = 1;  ///< heading: 1 north, 2 east, 3 south, 4 west

    OneBased<std::string, most_streets> nsnames;  ///< streets, west to east
    OneBased<std::string, most_roads> ewnames;    ///< roads, north to south
    OneBased<std::string, 4> dirnames;            ///< heading words

    int sok = 1;   ///< result of the last load of a streets file: 1 complete, 2 too short
    int ncsf = 1;  ///< files in the last listing, including the default one
    int nsf = 1;   ///< index in csfnames of the file last chosen
    OneBased<std::string, most_streets_files> csfnames;  ///< "original", then the cities' names
};

}  // namespace tamlo
