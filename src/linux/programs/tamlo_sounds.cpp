// tamlo-sounds: learn the sounds of the game.
#include "app/sounds/learn_sounds.h"
#include "linux/programs/machine.h"
#include "linux/programs/sounds_folder.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(), tamlo::LearnSounds);
}
