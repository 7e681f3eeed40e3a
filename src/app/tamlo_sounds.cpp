// tamlo-sounds: learn the sounds of the game.
#include "app/learn_sounds.h"
#include "app/machine.h"
#include "app/sounds_folder.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(), tamlo::LearnSounds);
}
