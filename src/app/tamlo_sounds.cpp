// tamlo-sounds: learn the sounds of the game, which lie beside this program or in the folder "game"
// next to its own.
#include <filesystem>

#include "app/learn_sounds.h"
#include "app/machine.h"
#include "platform/system/programs.h"

int main() {
    std::error_code ignored;
    const std::string own = tamlo::ProgramFolder();
    const bool here = std::filesystem::exists(own + "/tamlo1.wav", ignored);
    return tamlo::RunOnThisMachine(here ? own : own + "/../game", tamlo::LearnSounds);
}
