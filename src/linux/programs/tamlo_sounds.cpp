// tamlo-sounds: learn the sounds of the game.
#include "app/arguments.h"
#include "app/sounds/learn_sounds.h"
#include "app/sounds_folder.h"
#include "linux/programs/machine.h"

int main(int argc, char** argv) {
    const auto answered =
        tamlo::AnswerArguments(argc, argv, "tamlo-sounds", "learn the sounds of the game");
    if (answered) return *answered;
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(), tamlo::LearnSounds);
}
