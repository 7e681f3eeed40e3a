// The claim on the data folder, taken before anything in it is touched. The title tune plays
// meanwhile, so that a folder that makes the game wait is not taken for a game that doesn't start.
#include "linux/programs/one_game.h"

#include <optional>

#include "game/form1.h"
#include "linux/system/folder_lock.h"
#include "services/end_of_process.h"

namespace tamlo {
namespace {

// A game that was closed a moment ago may still be at it.
constexpr int most_tries = 20;
constexpr double between_tries = 0.1;  // s

[[noreturn]] void TellOfTheOther(Form1& game) {
    game.gs.wb1->Stop();  // the title tune
    game.readCFG();
    game.setupvoice();
    game.say(" Tamlo Delivery is running already. Please play on there. ");
    throw EndOfProcess{1, "Another game is using " + game.gs.datapath + "."};
}

}  // namespace

void PlayIfOnlyInstance(Form1& game) {
    std::optional<FolderLock> files;
    game.Form_Load([&] {
        files.emplace(game.gs.datapath);
        for (int tries = 1; !files->Take(); ++tries) {
            if (tries == most_tries) TellOfTheOther(game);
            game.dy(between_tries);
        }
    });
}

}  // namespace tamlo
