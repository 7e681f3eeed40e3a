#include "city/city_map.h"

#include "driving/hazards.h"
#include "game/restaurant.h"

namespace tamlo {
namespace {

char MarkOf(HazardKind kind) {
    switch (kind) {
        case HazardKind::crossing: return 'X';
        case HazardKind::truck: return 'T';
        case HazardKind::trap: return 'P';
        case HazardKind::hospital: return 'H';
    }
    return '-';
}

}  // namespace

char MarkOf(int street, int road) {
    if (IsRestaurant(street, road)) return '=';
    for (const Hazard& hazard : hazards) {
        if (hazard.street == street && hazard.road == road) return MarkOf(hazard.kind);
    }
    return '-';
}

std::array<std::string, sheet_side> Marks(const MapSheet& sheet) {
    std::array<std::string, sheet_side> rows;
    for (int row = 0; row < sheet_side; ++row) {
        for (int column = 0; column < sheet_side; ++column) {
            rows[static_cast<std::size_t>(row)] +=
                MarkOf(sheet.first_street + column, sheet.first_road + row);
        }
    }
    return rows;
}

}  // namespace tamlo
