// The last steps that every effect goes through.
#include "finish.h"

#include <stdexcept>
#include <string>

#include "filters.h"
#include "loudness.h"
#include "recipes.h"
#include "wave_writer.h"

namespace tamlo::soundsmith {

namespace {

constexpr double fade_in = 0.005;
constexpr double fade_out = 0.03;

// Recipes work at 44100 or 32000 samples a second.
int WorkingFactor(const Effect& effect) {
    return effect.rate > 20000 ? 2 : 4;
}

}  // namespace

int WorkingRate(const Effect& effect) {
    return effect.rate * WorkingFactor(effect);
}

Sound MakeSound(const Effect& effect) {
    const double seconds = static_cast<double>(RoomFor(effect)) / effect.rate;
    return Finished(effect, RecipeFor(effect)(
                                Brief{effect, WorkingRate(effect), seconds, Chance(effect.name)}));
}

Sound Finished(const Effect& effect, Sound made) {
    const int factor = WorkingFactor(effect);
    const std::size_t room = RoomFor(effect);
    if (made.rate != effect.rate * factor || Peak(made) == 0.0)
        throw std::runtime_error("its recipe makes no sound");
    made.loop = effect.loop;
    HighPass(made, 25.0);  // no DC, and nothing so low that it only moves a loudspeaker's cone
    Sound sound = Decimate(made, factor);
    if (room > 0 && sound.samples.size() > room) sound.samples.resize(room);
    if (!sound.loop) {
        FadeIn(sound, fade_in);
        FadeOut(sound, sound.Seconds() < 0.5 ? fade_in : fade_out);
    }
    LevelTo(sound, effect.lufs, effect.peak_db);
    return sound;
}

}  // namespace tamlo::soundsmith
