// Any bytes as a text to be spoken: clean for the engine, and never much longer than it was.
#include <string>

#include "audio/voice/wording.h"
#include "fuzzing.h"
#include "text/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    const std::string clean = CleanedForSpeech(TextOf(bytes, size));
    Check(IsUtf8(clean) && clean.size() <= size);
    Check(CleanedForSpeech(clean) == clean);
    for (const char c : clean) Check(c == '\n' || static_cast<unsigned char>(c) >= ' ');
    Check((SingleCharacter(clean) != 0) == (CountCharacters(clean) == 1));

    const std::string words = WithSpokenAmounts(clean);
    constexpr std::size_t longest_reading = 40;  // bytes that an amount's words may add
    Check(IsUtf8(words) && words.size() <= (clean.size() + 1) * longest_reading);
    Check(CleanedForSpeech(words) == words);
    return 0;
}
