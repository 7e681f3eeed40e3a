// Everything the game knows, in one flat record: each folder declares the fields it mainly
// writes, and every operation may read and write any of them.
#pragma once

#include "city/city_fields.h"
#include "driving/driving_fields.h"
#include "game/flow_fields.h"
#include "orders/order_fields.h"
#include "sound/sound_fields.h"
#include "speech/speech_fields.h"
#include "store/store_fields.h"

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
