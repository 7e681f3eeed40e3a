#include "audio/voice/pronunciation.h"

#include "audio/voice/espeak_library.h"
#include "audio/voice/voices.h"

namespace tamlo {
namespace {

constexpr int as_ipa = 2;

void Remove(std::string& text, const std::string& part) {
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at)) {
        text.erase(at, part.size());
    }
}

/// Null if there is no voice.
const EspeakLibrary* Library() {
    static const HeldEspeak library = TakeEspeakLibrary();
    static const bool ready =
        library && library->rate > 0 && library->SetVoiceByName(voice_table[0].name) == EE_OK;
    return ready ? library.get() : nullptr;
}

}  // namespace

bool CanPronounce() {
    return Library() != nullptr;
}

std::string Pronunciation(const std::string& text) {
    const EspeakLibrary* const library = Library();
    if (library == nullptr) return "";
    std::string phonemes;
    const void* rest = text.c_str();
    while (rest != nullptr) {  // one clause after the other
        const char* clause = library->TextToPhonemes(&rest, espeakCHARS_UTF8, as_ipa);
        if (clause != nullptr) phonemes += clause;
    }
    for (const char* silent : {"\u02C8", "\u02CC", "\u02D0", " ", "\n", "_"}) {
        Remove(phonemes, silent);
    }
    return phonemes;
}

}  // namespace tamlo
