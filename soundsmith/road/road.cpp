// The recipes of this theme.
#include "recipes.h"

namespace tamlo::soundsmith {

std::span<const RecipeEntry> RoadRecipes() {
    return {};
}

}  // namespace tamlo::soundsmith
