// The settings between runs.
#include <algorithm>

#include "game/form1.h"
#include "services/files.h"
#include "store/settings_file.h"

namespace tamlo {

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

void Form1::printCFG() {
    const Settings settings{gs.nv, gs.vr, gs.vv, gs.wavol, gs.gnd};
    if (!platform.files.Replace(path("tamlo.cfg"), FormatSettings(settings))) {
        say(" I 'm sorry, but your settings could not be saved. ");
    }
}

}  // namespace tamlo
