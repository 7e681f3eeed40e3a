// The game as it is played.
#include "linux/programs/machine.h"
#include "linux/programs/one_game.h"
#include "linux/programs/sounds_folder.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(), tamlo::PlayAlone);
}
