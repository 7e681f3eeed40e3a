// The recipes of this theme.
#include "road.h"

#include <array>

namespace tamlo::soundsmith {

std::span<const RecipeEntry> RoadRecipes() {
    static constexpr std::array<RecipeEntry, 21> all_recipes{{
        {"tamlo20", CrossingBell},     {"tamlo21", FreightTrain}, {"tamlo22", PassengerTrain},
        {"tamlo23", Ambulance},        {"tamlo24", OldCar},       {"tamlo25", PoliceStop},
        {"tamlo29", Bicycle},          {"tamlo33", NearMiss},     {"tamlo34", Truck},
        {"tamlo35", IceCreamVan},      {"tamlo36", MarchingBand}, {"tamlo37", Jogger},
        {"tamlo39", HorseAndCarriage}, {"tamlo40", Trolley},      {"tamlo82", Skateboard},
        {"tamlo83", RunningDog},       {"tamlo84", Helicopter},   {"tamlo86", CityBus},
        {"tamlo87", Motorbike},        {"tamlo88", Tram},         {"tamlo89", SportsCar},
    }};
    return all_recipes;
}

}  // namespace tamlo::soundsmith
