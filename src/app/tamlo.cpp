// The game as it is played.
#include "app/machine.h"
#include "app/sounds_folder.h"
#include "game/form1.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::SoundsFolder(),
                                   [](tamlo::Form1& game) { game.Form_Load(); });
}
