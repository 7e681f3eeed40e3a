// The game as it is played.
#include "app/machine.h"
#include "game/form1.h"
#include "platform/system/programs.h"

int main() {
    return tamlo::RunOnThisMachine(tamlo::ProgramFolder(),
                                   [](tamlo::Form1& game) { game.Form_Load(); });
}
