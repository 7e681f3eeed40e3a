// The fields of driving: speed, the delivery area, the rev sound, the last road scenes.
#pragma once

#include <memory>

#include "game/one_based.h"
#include "services/sound.h"

namespace tamlo {

struct DrivingFields {
    double sped = 0;   ///< speed of the block being driven, miles an hour
    double spedo = 0;  ///< the last speed typed, after capping; Enter alone reuses it
    int mst = 0;       ///< width of the delivery area, streets
    int mew = 0;       ///< height of the delivery area, roads
    int cartog = 1;    ///< vehicle rev sound: 1 on, 2 off

    OneBased<int, 4> evhist;  ///< the last four road scenes, oldest first, 0 for none

    // Second to fifth copy of the scene of five in a line; the first is in wbloop.
    std::unique_ptr<SoundBuffer> wbgrp2, wbgrp3, wbgrp4, wbgrp5;
};

}  // namespace tamlo
