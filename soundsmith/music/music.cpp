// The recipes of this theme.
#include "music.h"

#include <array>

namespace tamlo::soundsmith {

std::span<const RecipeEntry> MusicRecipes() {
    static constexpr std::array<RecipeEntry, 1> kRecipes{{{"tamlo1", TitleTune}}};
    return kRecipes;
}

}  // namespace tamlo::soundsmith
