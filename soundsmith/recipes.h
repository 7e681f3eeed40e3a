// What a recipe is, and which recipe makes which effect. Each theme's folder has a table of its
// own.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "chance.h"
#include "sound.h"
#include "sound/effects.h"

namespace tamlo::soundsmith {

/// What a recipe is told: the room it has and its own chance. Recipes work at a rate two to four
/// times that of their file, so that hard edges and bent waves leave no false tones behind.
struct Brief {
    const Effect& effect;
    int rate;        // to make the sound at
    double seconds;  ///< the room in the file; 0 when it may be as long as it likes
    Chance chance;   // seeded by the effect's name

    /// Silence of the whole length to mix into; a loop if the effect is one.
    Sound Blank() const {
        Sound sound = Silence(rate, seconds);
        sound.loop = effect.loop;
        return sound;
    }
};

/// A recipe returns its sound at brief.rate, at any level, no longer than brief.seconds (what is
/// longer is cut off).
using Recipe = Sound (*)(Brief brief);

struct RecipeEntry {
    std::string_view name;  ///< of the effect
    Recipe make;
};

std::span<const RecipeEntry> CustomerRecipes();
std::span<const RecipeEntry> DoorRecipes();
std::span<const RecipeEntry> MoneyRecipes();
std::span<const RecipeEntry> MusicRecipes();
std::span<const RecipeEntry> PlaceRecipes();
std::span<const RecipeEntry> RoadRecipes();
std::span<const RecipeEntry> VehicleRecipes();

/// Throws std::runtime_error when the effect has no recipe.
Recipe RecipeFor(const Effect& effect);

/// The folder of the effect's recipe, as a heading for people.
std::string_view ThemeOf(const Effect& effect);

/// Changes whenever the effect's file could come out differently: with its row, with the sources of
/// its theme, with the vocabulary that all share.
std::string StampOf(const Effect& effect);

}  // namespace tamlo::soundsmith
