// A player with a plan who can't sit still: four keys in five follow the plan, one is wild; a
// third come while something is still spoken or played.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "game/game_state.h"
#include "rehearsal/virtual_time.h"
#include "scenarios/career_driver.h"

namespace tamlo {

/// A key and when it is pressed: at rest, or some ticks after the key before.
struct Stroke {
    int key = 0;
    Ticks after = 0;  ///< 0: at rest
};

class Monkey {
  public:
    explicit Monkey(std::uint64_t seed) : random_(seed) {}

    /// The next keys, of which the first comes at rest. `asked` is what was spoken last.
    std::vector<Stroke> Strokes(const GameState& gs, const std::string& asked);

    std::int64_t Keys() const { return keys_; }
    std::int64_t WildKeys() const { return wild_; }
    /// Keys that did not wait for rest.
    std::int64_t HastyKeys() const { return hasty_; }

  private:
    using Codes = std::vector<int>;

    bool OneIn(int n) { return Below(n) == 0; }
    int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    int WildKey();
    void Strike(std::vector<Stroke>& strokes, int key);

    Codes Plan(const GameState& gs, const std::string& asked);
    Codes AtMainMenu();
    Codes AtRestaurant();
    Codes AtDeparture(const GameState& gs, const std::string& asked);
    Codes AtCorner(const GameState& gs, const std::string& asked);
    Codes InOptions();
    Codes Speed(const GameState& gs);
    Codes Driven(const GameState& gs, const std::string& asked);

    std::mt19937_64 random_;
    CareerDriver driver_{0};
    std::int64_t keys_ = 0;
    std::int64_t wild_ = 0;
    std::int64_t hasty_ = 0;
};

}  // namespace tamlo
