// The game's state in one flat record. Its parts group the fields by subject; every operation may
// read and write any of them.
#pragma once

#include "game/city_fields.h"
#include "game/driving_fields.h"
#include "game/flow_fields.h"
#include "game/order_fields.h"
#include "game/sound_fields.h"
#include "game/speech_fields.h"
#include "game/store_fields.h"

namespace tamlo {

// Sound comes first: its device must outlive every buffer, those of driving included.
struct GameState : SoundFields,
                   SpeechFields,
                   CityFields,
                   OrderFields,
                   DrivingFields,
                   StoreFields,
                   FlowFields {};

}  // namespace tamlo
