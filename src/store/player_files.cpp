// The folder of the player's files, and what happens to files that fail.
#include <algorithm>

#include "game/form1.h"
#include "services/desktop.h"
#include "services/files.h"
#include "store/data_folder.h"

namespace tamlo {

void Form1::getdatapath() {
    const std::string documents = platform.desktop.SpecialFolder(documents_folder);
    pumpEvents();
    const DataFolder folder = FindDataFolder(platform.files, documents);
    gs.datapath = folder.path;
    if (folder.exists) return;
    platform.files.MakeFolder(folder.path);
    pumpEvents();
}

std::string Form1::path(std::string_view name) const {
    return gs.datapath + "/" + std::string(name);
}

bool Form1::putaside(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    for (int number = 1; number <= 1000; ++number) {
        const std::string aside =
            name.substr(0, dot) + " damaged " + std::to_string(number) + name.substr(dot);
        if (platform.files.FindFile(path(aside)).empty()) {
            return platform.files.Rename(path(name), path(aside));
        }
    }
    return false;
}

// Told at once: otherwise the player would learn of it only by losing a day, or be puzzled by an
// unusual voice or unusual streets.
void Form1::telltroubles() {
    if (gs.noread == 1) {
        gs.noread = 2;
        say(" I 'm sorry, but some files of the game can not be read. Your settings or the names "
            "of the streets may not be your own. ");
    }
    if (gs.nowrite != 1) return;
    gs.nowrite = 2;
    say(" I 'm sorry, but the files of the game can not be written to " + gs.datapath +
        ". Your settings and your game will not be saved. ");
}

}  // namespace tamlo
