// The recipes of this theme.
#include "door.h"

#include <array>

namespace tamlo::soundsmith {

std::span<const RecipeEntry> DoorRecipes() {
    static constexpr std::array<RecipeEntry, 11> all_recipes{{
        {"tamlo6", ManWalksUp},
        {"tamlo7", WomanWalksUp},
        {"tamlo8", KnockOnWood},
        {"tamlo9", DingDong},
        {"tamlo10", Buzzer},
        {"tamlo11", Chime},
        {"tamlo12", IronKnocker},
        {"tamlo13", ImpatientFist},
        {"tamlo14", LockAndCreak},
        {"tamlo15", ChainAndBolt},
        {"tamlo16", DogBehindDoor},
    }};
    return all_recipes;
}

}  // namespace tamlo::soundsmith
