// What must always hold of the game, looked at in every event turn and, for the files on disk,
// now and then at rest.
#pragma once

#include <stdexcept>
#include <string>

#include "game/game_state.h"
#include "services/events.h"
#include "temporary_folder.h"

namespace tamlo {

struct BrokenRule : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The game's events, with a look at its fields before every turn.
class WitnessedEvents final : public Events {
  public:
    explicit WitnessedEvents(Events& events) : events_(events) {}

    /// The fields to look at; they must outlive the play.
    void Watch(const GameState& gs) { gs_ = &gs; }
    void ShowWindow(const char* title) override { events_.ShowWindow(title); }
    /// Throws BrokenRule.
    void Turn(KeyListener& listener, double rest) override;

  private:
    Events& events_;
    const GameState* gs_ = nullptr;
    int orders_ = 0;    ///< open ones in the turn before
    double clock_ = 0;  ///< `atod` then
    double trip_ = 0;   ///< `tit` then
};

/// Throws BrokenRule if one of the player's files can't be understood.
void LookAtFiles(const TemporaryFolder& documents);

}  // namespace tamlo
