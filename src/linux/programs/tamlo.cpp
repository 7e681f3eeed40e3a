// The game as it is played.
#include "app/sounds_folder.h"
#include "linux/programs/machine.h"
#include "linux/programs/one_game.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(), tamlo::PlayIfOnlyInstance);
}
