// The recipes of this theme.
#include "music.h"

#include <array>

namespace tamlo::soundsmith {

std::span<const RecipeEntry> MusicRecipes() {
    static constexpr std::array<RecipeEntry, 1> all_recipes{{{"tamlo1", TitleTune}}};
    return all_recipes;
}

}  // namespace tamlo::soundsmith
