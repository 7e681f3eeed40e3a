// The recipes of this theme.
#include "recipes.h"

namespace tamlo::soundsmith {

std::span<const RecipeEntry> PlaceRecipes() {
    return {};
}

}  // namespace tamlo::soundsmith
