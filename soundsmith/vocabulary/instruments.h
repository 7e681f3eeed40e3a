// Instruments for the tunes: each plays one note.
#pragma once

#include "chance.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// The pitch of a note in semitones from the a at 440 hertz.
double NoteHz(double semitones);

/// The pitch of a note by name and octave: "c4" is middle c, "f#4", "bb3". Throws std::logic_error
/// on a name that is none.
double NoteHz(const char* name);

Sound Accordion(int rate, double hz, double seconds, Chance& chance);
Sound PluckedString(int rate, double hz, double seconds, double brightness, Chance& chance);
Sound Brass(int rate, double hz, double seconds, Chance& chance);
Sound Tuba(int rate, double hz, double seconds, Chance& chance);
Sound Clarinet(int rate, double hz, double seconds, Chance& chance);
Sound MusicBox(int rate, double hz, double seconds, Chance& chance);
Sound BassDrum(int rate, Chance& chance);
Sound SnareDrum(int rate, double seconds, Chance& chance);
Sound Cymbal(int rate, double seconds, Chance& chance);
Sound BrushOnSnare(int rate, Chance& chance);

}  // namespace tamlo::soundsmith
