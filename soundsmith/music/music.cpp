// The recipes of this theme.
#include "recipes.h"

namespace tamlo::soundsmith {

std::span<const RecipeEntry> MusicRecipes() {
    return {};
}

}  // namespace tamlo::soundsmith
