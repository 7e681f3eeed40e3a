// libespeak-ng, loaded while the program runs: its state is global, so each voice that speaks has a
// copy of the library to itself.
#pragma once

#include <espeak-ng/speak_lib.h>

#include <functional>
#include <memory>

namespace tamlo {

/// The library's own functions, under its own names.
struct EspeakLibrary {
    decltype(espeak_Initialize)* Initialize = nullptr;
    decltype(espeak_Info)* Info = nullptr;
    decltype(espeak_SetVoiceByName)* SetVoiceByName = nullptr;
    decltype(espeak_SetParameter)* SetParameter = nullptr;
    decltype(espeak_SetSynthCallback)* SetSynthCallback = nullptr;
    decltype(espeak_Synth)* Synth = nullptr;
    decltype(espeak_Char)* Char = nullptr;
    decltype(espeak_TextToPhonemes)* TextToPhonemes = nullptr;

    /// Samples a second; -1 if there is no data to speak with, 0 before the library is ready.
    int rate = 0;
};

/// A copy that nobody else uses, ready to speak, until the pointer goes; null if the library is not
/// installed or too many hold one. A copy is never unloaded: the next taker gets it.
using HeldEspeak = std::unique_ptr<EspeakLibrary, std::function<void(EspeakLibrary*)>>;
HeldEspeak TakeEspeakLibrary();

}  // namespace tamlo
