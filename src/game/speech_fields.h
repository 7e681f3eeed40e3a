// The fields of speech and the keyboard.
#pragma once

#include <memory>
#include <string>

#include "services/speech.h"

namespace tamlo {

struct SpeechFields {
    std::unique_ptr<SpeechEngine> Voice;  ///< the speech engine; replaced to choose a voice
    std::string g;                        ///< pending key: decimal virtual-key code, "" for none
    std::string g2;                       ///< its character, lower case, UTF-8
    std::string r;                        ///< the line last typed
    int vr = 0;                           ///< speech rate; not limited by its dialog
    int vv = 100;                         ///< speech volume, 0 to 100
    int nv = 0;                           ///< index from 0 of the selected voice
    int nov = 0;                          ///< installed voices, counted at start
    int gnd = 1;                          ///< the player's character: 1 female, 2 male
};

}  // namespace tamlo
