// The folder of the player's files, and the settings kept in it.
#include "game/form1.h"
#include "platform/desktop.h"
#include "platform/files.h"
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
    const Settings settings = ParseSettings(file.bytes, gs.nov);
    gs.nv = settings.nv;
    gs.vr = settings.vr;
    gs.vv = settings.vv;
    gs.wavol = settings.wavol;
    gs.gnd = settings.gnd;
}

void Form1::printCFG() {
    const Settings settings{gs.nv, gs.vr, gs.vv, gs.wavol, gs.gnd};
    if (!platform.files.Replace(path("tamlo.cfg"), FormatSettings(settings))) {
        say(" I 'm sorry, but your settings could not be saved. ");
    }
}

}  // namespace tamlo
