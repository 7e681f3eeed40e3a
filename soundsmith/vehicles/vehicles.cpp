// The recipes of this theme, and what its vehicles share.
#include "vehicles.h"

#include <array>

namespace tamlo::soundsmith {

std::span<const RecipeEntry> VehicleRecipes() {
    static constexpr std::array<RecipeEntry, 11> all_recipes{{
        {"tamlo2", ScooterStart},
        {"tamlo3", ScooterIdle},
        {"tamlo4", ScooterPullsAway},
        {"tamlo17", Arrival},
        {"tamlo18", MovingOff},
        {"tamlo26", BuggyStart},
        {"tamlo27", BuggyIdle},
        {"tamlo28", BuggyPullsAway},
        {"tamlo30", VanStart},
        {"tamlo31", VanIdle},
        {"tamlo32", VanPullsAway},
    }};
    return all_recipes;
}

Sound DriveEngine(const EngineKind& kind, const Sound& like, const Ride& ride, Chance& chance) {
    Sound engine = RunEngine(kind, like, ride.cycles, ride.load, chance);
    MovingLowPass(engine, ride.bright_hz);
    Shape(engine, ride.level);
    return engine;
}

}  // namespace tamlo::soundsmith
