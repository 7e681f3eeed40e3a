// One monkey's life: the game started again and again on one Documents folder, with what must
// always hold looked at after every key.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "monkeys/monkey.h"
#include "monkeys/reached.h"
#include "temporary_folder.h"

namespace tamlo {

/// A run in which something did not hold, with what it takes to repeat it.
struct Fault {
    std::string what;
    std::string script;     ///< as tamlo-rehearse reads it
    std::string trace;      ///< up to the fault
    std::string documents;  ///< folder of the documents as they were when the run began
};

struct LifePlan {
    std::uint64_t seed = 0;
    std::int64_t keys = 0;       ///< the life ends with the first run after so many
    std::int64_t fault_at = -1;  ///< a made-up fault after so many keys; none below 0
    std::string sounds;          ///< folder of the wave files
};

class Life {
  public:
    Life(LifePlan plan, Reached& reached);

    /// Lives to the end; the first fault ends it at once. What its documents point to exists as
    /// long as this object.
    std::optional<Fault> Live();

    const Monkey& Player() const { return monkey_; }

  private:
    struct Play;  ///< one run of the game

    void Inherit();
    std::optional<Fault> Run();
    std::vector<Step> Next(Play& play, const GameState& gs, const std::string& asked);

    LifePlan plan_;
    Reached& reached_;
    Monkey monkey_;
    TemporaryFolder documents_;
    TemporaryFolder before_;  ///< holds a copy of the documents as a run began
    int runs_ = 0;
};

/// Plays a script on a copy of a Documents folder; the whole trace.
std::string Replayed(const std::string& script, const std::string& documents,
                     const std::string& sounds);

}  // namespace tamlo
