// The themes side by side.
#include "recipes.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

#include "theme_digests.h"  // written by the build from the sources of each theme

namespace tamlo::soundsmith {

namespace {

struct Theme {
    std::span<const RecipeEntry> (*recipes)();
    std::string_view digest;
};

constexpr std::array kThemes{
    Theme{CustomerRecipes, digests::kCustomers}, Theme{DoorRecipes, digests::kDoor},
    Theme{MoneyRecipes, digests::kMoney},        Theme{MusicRecipes, digests::kMusic},
    Theme{PlaceRecipes, digests::kPlaces},       Theme{RoadRecipes, digests::kRoad},
    Theme{VehicleRecipes, digests::kVehicles},
};

struct Found {
    Recipe make = nullptr;
    std::string_view digest;
};

Found Find(std::string_view name) {
    for (const Theme& theme : kThemes)
        for (const RecipeEntry& entry : theme.recipes())
            if (entry.name == name) return {entry.make, theme.digest};
    return {};
}

}  // namespace

bool HasRecipe(const Effect& effect) {
    return Find(effect.name).make != nullptr;
}

Recipe RecipeFor(const Effect& effect) {
    const Found found = Find(effect.name);
    if (found.make == nullptr) throw std::runtime_error("there is no recipe for it");
    return found.make;
}

std::string StampOf(const Effect& effect) {
    std::ostringstream stamp;
    stamp << effect.rate << '/' << effect.bits << '/' << effect.loop << '/' << effect.lufs << '/'
          << effect.peak_db << '/' << effect.text.size << '/' << effect.text.fields << '/'
          << effect.text.last << '/' << Find(effect.name).digest;
    return stamp.str();
}

}  // namespace tamlo::soundsmith
