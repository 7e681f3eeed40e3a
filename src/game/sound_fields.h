// The fields of sound: the device, the buffers, the volume.
#pragma once

#include <memory>

#include "services/sound.h"

namespace tamlo {

struct SoundFields {
    int wavol = 0;  ///< volume of every effect, hundredths of a decibel, 0 full to -3500
    int ajv = 0;    ///< volume of the background while it is faded, same units
    int wcv = 0;    ///< 1 if the wave-file check has failed

    SoundSystem* dx8 = nullptr;        ///< root of the sound service
    std::unique_ptr<SoundDevice> ds8;  ///< the device; declared before the buffers, which need it
    BufferDescription bufdesc;         ///< used for every buffer made from a file

    std::unique_ptr<SoundBuffer> wb1;      ///< play, the title and test sounds
    std::unique_ptr<SoundBuffer> wb2;      ///< play2, play3, the ambulance
    std::unique_ptr<SoundBuffer> wbloop;   ///< playloop, and sounds that cross the road
    std::unique_ptr<SoundBuffer> wbstart;  ///< the vehicle's engine start
    std::unique_ptr<SoundBuffer> wbgo;     ///< its acceleration
    std::unique_ptr<SoundBuffer> wbidle;   ///< its idle loop
    std::unique_ptr<SoundBuffer> wbppk;    ///< the restaurant loop
    std::unique_ptr<SoundBuffer> wbbg;     ///< the background loop
};

}  // namespace tamlo
