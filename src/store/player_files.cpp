// The folder of the player's files, and the settings kept in it.
#include <algorithm>

#include "game/form1.h"
#include "services/desktop.h"
#include "services/files.h"
#include "store/settings_file.h"

namespace tamlo {

void Form1::getdatapath() {
    const std::string documents = platform.desktop.SpecialFolder(documents_folder);
    pumpEvents();
    if (documents.empty()) {
        gs.datapath = platform.files.CurrentDirectory();
        return;
    }
    const std::string folder = documents + "/tolvane";
    gs.datapath = platform.files.FindFolder(folder);
    if (gs.datapath.empty()) {
        platform.files.MakeFolder(folder);
        gs.datapath = folder;
        pumpEvents();
    }
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

void Form1::readCFG() {
    const ReadResult file = platform.files.Read(path("tamlo.cfg"));
    if (file.outcome == ReadResult::Outcome::failed) gs.noread = std::max(gs.noread, 1);
    const Settings settings = ParseSettings(file.bytes, gs.nov);
    gs.nv = settings.nv;
    gs.vr = settings.vr;
    gs.vv = settings.vv;
    gs.wavol = settings.wavol;
    gs.gnd = settings.gnd;
}

// A player would otherwise learn of it only by losing a day, or wonder at a voice and streets that
// are not the usual ones.
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

void Form1::printCFG() {
    const Settings settings{gs.nv, gs.vr, gs.vv, gs.wavol, gs.gnd};
    if (!platform.files.Replace(path("tamlo.cfg"), FormatSettings(settings))) {
        say(" I 'm sorry, but your settings could not be saved. ");
    }
}

}  // namespace tamlo
