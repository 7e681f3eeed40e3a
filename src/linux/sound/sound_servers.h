// Which way to the sound card is best on this machine.
#pragma once

#include <string>
#include <vector>

namespace tamlo {

/// Names of audio drivers in the order to try them: PipeWire's own where such a server answers
/// (by way of its PulseAudio service everything is heard 20 ms later), else PulseAudio, else ALSA.
/// None while PipeWire is there and does not answer: the audio library would wait for it, and for
/// ever if it ended. Takes up to 0.3 s then, a millisecond otherwise.
/// Only the one that the environment variable SDL_AUDIODRIVER names, if there is one.
std::vector<std::string> SoundDrivers();

/// ALSA's library explains on standard error whatever it doesn't find, which a terminal player
/// would have to listen to: has it say nothing.
void KeepAlsaQuiet();

}  // namespace tamlo
