// The recipes of this theme.
#include "recipes.h"

namespace tamlo::soundsmith {

std::span<const RecipeEntry> MoneyRecipes() {
    return {};
}

}  // namespace tamlo::soundsmith
