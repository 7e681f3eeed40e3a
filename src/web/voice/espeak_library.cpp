// The library is part of the program, twice: its state is global, so one in which a thread hangs is
// of no use to another. All names of the second begin with "second_" (packaging/web/make-voice).
#include "audio/voice/espeak_library.h"

#include <array>
#include <mutex>

#define TAMLO_SECOND(name) extern "C" decltype(name) second_##name
TAMLO_SECOND(espeak_Initialize);
TAMLO_SECOND(espeak_Info);
TAMLO_SECOND(espeak_SetVoiceByName);
TAMLO_SECOND(espeak_SetParameter);
TAMLO_SECOND(espeak_SetSynthCallback);
TAMLO_SECOND(espeak_Synth);
TAMLO_SECOND(espeak_Char);
TAMLO_SECOND(espeak_TextToPhonemes);
#undef TAMLO_SECOND

namespace tamlo {
namespace {

constexpr int chunk_milliseconds = 20;
constexpr const char* data_folder = "/voice";

struct Copy {
    EspeakLibrary library;
    bool held = false;
};

std::mutex copies_mutex;
std::array<Copy, 2> copies{
    Copy{{espeak_Initialize, espeak_Info, espeak_SetVoiceByName, espeak_SetParameter,
          espeak_SetSynthCallback, espeak_Synth, espeak_Char, espeak_TextToPhonemes}},
    Copy{{second_espeak_Initialize, second_espeak_Info, second_espeak_SetVoiceByName,
          second_espeak_SetParameter, second_espeak_SetSynthCallback, second_espeak_Synth,
          second_espeak_Char, second_espeak_TextToPhonemes}}};

void GiveBack(const EspeakLibrary* library) {
    const std::lock_guard lock(copies_mutex);
    for (Copy& copy : copies) {
        if (&copy.library == library) copy.held = false;
    }
}

EspeakLibrary* Hold() {
    const std::lock_guard lock(copies_mutex);
    for (Copy& copy : copies) {
        if (copy.held) continue;
        copy.held = true;
        return &copy.library;
    }
    return nullptr;
}

}  // namespace

HeldEspeak TakeEspeakLibrary() {
    HeldEspeak library(Hold(), GiveBack);
    if (library && library->rate == 0) {
        const int rate = library->Initialize(AUDIO_OUTPUT_SYNCHRONOUS, chunk_milliseconds,
                                             data_folder, espeakINITIALIZE_DONT_EXIT);
        library->rate = rate > 0 ? rate : -1;
    }
    return library;
}

}  // namespace tamlo
