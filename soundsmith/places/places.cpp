// The recipes of this theme.
#include "places.h"

#include <array>

namespace tamlo::soundsmith {

std::span<const RecipeEntry> PlaceRecipes() {
    static constexpr std::array<RecipeEntry, 5> all_recipes{{
        {"tamlo5", Restaurant},
        {"tamlob1", QuietSuburb},
        {"tamlob2", Avenue},
        {"tamlob3", WindyStreet},
        {"tamlob4", Rain},
    }};
    return all_recipes;
}

}  // namespace tamlo::soundsmith
