// A player who always drives straight to the next open order at top speed, and quits for the day
// every few trips. Answers what was last said, until the game ends.
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include "game/game_state.h"
#include "game/vehicles.h"
#include "rehearsal/script.h"

namespace tamlo {

class CareerDriver {
  public:
    /// Quits for the day after so many trips; 0 never does.
    explicit CareerDriver(int trips_a_day) : trips_a_day_(trips_a_day) {}

    /// The keys that answer the game's last prompt, as steps; none if there is nothing to do.
    std::vector<Step> Answer(const GameState& gs, const std::string& asked) {
        std::vector<Step> steps;
        for (const int key : Keys(gs, asked)) {
            steps.push_back(Step{.kind = Step::Kind::press, .key = key});
            script +=
                (script.empty() || script.back() == '\n' ? "press " : " ") + std::to_string(key);
        }
        if (!steps.empty()) script += "\n";
        return steps;
    }

    int trips = 0;
    std::string script;  ///< everything pressed so far, as tamlo-rehearse reads it

  private:
    static constexpr int enter = 13;
    static constexpr int up = 38;
    static constexpr int right = 39;
    static constexpr int down = 40;
    static constexpr int left = 37;

    std::vector<int> Keys(const GameState& gs, const std::string& asked) {
        if (asked == " start game ") return {enter};
        if (asked == " turn left, west ") return Depart(gs);
        if (asked == " go forward ") return ChooseWay(gs);
        if (asked == " How fast do you wish to go? ") return Speed(gs);
        if (asked == " deliver tamlo ") return Visit();
        if (asked == " Enter your name as the new record holder. ") return {16, 'A', 'L', enter};
        if (asked == " yes ") return {enter};
        return {};
    }

    std::vector<int> Visit() {
        ++trips;
        const bool enough = trips_a_day_ > 0 && trips % trips_a_day_ == 0;
        return enough ? std::vector<int>{down, enter} : std::vector<int>{enter};
    }

    static std::vector<int> Depart(const GameState& gs) {
        if (gs.ordx(1) <= 51) return {enter};
        return {right, enter};
    }

    static std::vector<int> Speed(const GameState& gs) {
        const int speed = VehicleOf(gs.plast)->top_speed;
        return {'0' + speed / 10, '0' + speed % 10};
    }

    /// The corner of the next open order, or the nearer one of the restaurant.
    static void Target(const GameState& gs, int& x, int& y) {
        x = gs.rox <= 51 ? 51 : 52;
        y = 23;
        for (int k = gs.noos; k >= 1; --k) {
            if (gs.ordopen(k) != 1) continue;
            x = gs.ordx(k);
            y = gs.ordy(k);
        }
    }

    static std::vector<int> ChooseWay(const GameState& gs) {
        int x = 0;
        int y = 0;
        Target(gs, x, y);
        int wanted = gs.rox < x ? 2 : gs.rox > x ? 4 : gs.roy < y ? 3 : 1;
        // Already at the corner: around the block and back.
        if (gs.rox == x && gs.roy == y) wanted = gs.roz;
        switch ((wanted - gs.roz + 4) % 4) {
            case 0: return {enter};
            case 3: return {left, enter};
            default: return {right, enter};
        }
    }

    int trips_a_day_;
};

}  // namespace tamlo
