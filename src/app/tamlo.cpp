// The game as it is played.
#include "app/machine.h"
#include "app/one_game.h"
#include "app/sounds_folder.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(), tamlo::PlayAlone);
}
