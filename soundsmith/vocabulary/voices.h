// Throats of animals and of people too far off for words.
#pragma once

#include "chance.h"
#include "curve.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// One bark of a dog whose voice lies at `hz` (a big one at 300, a terrier at 700).
Sound Bark(int rate, double hz, double seconds, Chance& chance);

/// A bird's phrase: `notes` whistles around `hz`, each with a warble.
Sound BirdPhrase(int rate, double hz, int notes, Chance& chance);

/// A crowd without words for the length of `like`: `people` voices, each with a pitch, syllables
/// and pauses of its own.
Sound Murmur(const Sound& like, int people, Chance& chance);

/// A breath through the mouth: inwards bright and short, outwards darker.
Sound Breath(int rate, bool inwards, double seconds, Chance& chance);

/// A far shout or laugh of a playing child, one to three syllables.
Sound ChildCall(int rate, Chance& chance);

}  // namespace tamlo::soundsmith
