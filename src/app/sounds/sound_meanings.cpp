// The words come from the table of effects, the movements from that of the road scenes.
#include "app/sounds/sound_meanings.h"

#include "driving/road_scenes.h"
#include "sound/effects.h"

namespace tamlo {
namespace {

constexpr double bed_level =
    -30;  // LUFS: sounds that play under speech are quieter, all others louder

SoundPath PathOf(Movement movement) {
    switch (movement) {
        case Movement::ambulance: return SoundPath::nears;
        case Movement::centred: return SoundPath::none;
        case Movement::slow_crossing:
        case Movement::truck:
        case Movement::crossing: return SoundPath::crosses;
        case Movement::bus: return SoundPath::halts;
        case Movement::five_in_line: return SoundPath::in_line;
    }
    return SoundPath::none;
}

}  // namespace

SoundMeaning MeaningOfSound(std::string_view name) {
    const Effect* const effect = FindEffect(name);
    if (effect == nullptr) return {};
    SoundMeaning meaning{.what = effect->role, .bed = effect->loop && effect->lufs < bed_level};
    for (const RoadScene& scene : road_scenes) {
        if (scene.sound == name) meaning.path = PathOf(scene.movement);
    }
    return meaning;
}

}  // namespace tamlo
