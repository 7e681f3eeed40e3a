// tamlo-sounds: learn the sounds of the game.
#include "app/sounds/learn_sounds.h"
#include "app/sounds_folder.h"
#include "linux/programs/machine.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(), tamlo::LearnSounds);
}
