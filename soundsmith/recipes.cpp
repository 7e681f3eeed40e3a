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
    std::string_view name;
    std::span<const RecipeEntry> (*recipes)();
    std::string_view digest;
};

constexpr std::array themes{
    Theme{"Customers", CustomerRecipes, digests::customers},
    Theme{"Door", DoorRecipes, digests::door},
    Theme{"Money", MoneyRecipes, digests::money},
    Theme{"Music", MusicRecipes, digests::music},
    Theme{"Places", PlaceRecipes, digests::places},
    Theme{"Road", RoadRecipes, digests::road},
    Theme{"Vehicles", VehicleRecipes, digests::vehicles},
};

struct Found {
    Recipe make = nullptr;
    const Theme* theme = nullptr;
};

Found Find(std::string_view name) {
    for (const Theme& theme : themes)
        for (const RecipeEntry& entry : theme.recipes())
            if (entry.name == name) return {entry.make, &theme};
    return {};
}

}  // namespace

Recipe RecipeFor(const Effect& effect) {
    const Found found = Find(effect.name);
    if (found.make == nullptr) throw std::runtime_error("there is no recipe for it");
    return found.make;
}

std::string_view ThemeOf(const Effect& effect) {
    const Theme* theme = Find(effect.name).theme;
    return theme == nullptr ? "Others" : theme->name;
}

std::string StampOf(const Effect& effect) {
    const Theme* theme = Find(effect.name).theme;
    std::ostringstream stamp;
    stamp << effect.rate << '/' << effect.bits << '/' << effect.loop << '/' << effect.lufs << '/'
          << effect.peak_db << '/' << effect.text.size << '/' << effect.text.fields << '/'
          << effect.text.last << '/' << (theme == nullptr ? "" : theme->digest);
    return stamp.str();
}

}  // namespace tamlo::soundsmith
