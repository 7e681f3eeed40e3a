#include "platform/voice/pronunciation.h"

#include <espeak-ng/speak_lib.h>

#include "platform/voice/voices.h"

namespace tamlo {
namespace {

constexpr int as_ipa = 2;

void Remove(std::string& text, const std::string& part) {
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at)) {
        text.erase(at, part.size());
    }
}

}  // namespace

bool CanPronounce() {
    static const bool ready =
        espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, nullptr, espeakINITIALIZE_DONT_EXIT) > 0 &&
        espeak_SetVoiceByName(voice_table[0].name) == EE_OK;
    return ready;
}

std::string Pronunciation(const std::string& text) {
    if (!CanPronounce()) return "";
    std::string phonemes;
    const void* rest = text.c_str();
    while (rest != nullptr) {  // one clause after the other
        const char* clause = espeak_TextToPhonemes(&rest, espeakCHARS_UTF8, as_ipa);
        if (clause != nullptr) phonemes += clause;
    }
    for (const char* silent : {"\u02C8", "\u02CC", "\u02D0", " ", "\n", "_"}) {
        Remove(phonemes, silent);
    }
    return phonemes;
}

}  // namespace tamlo
