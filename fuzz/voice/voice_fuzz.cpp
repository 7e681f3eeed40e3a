// Any names of streets through the wording and the real voice: it comes to an end, and speaks
// the next sentence as if nothing had been.
#include <algorithm>
#include <memory>
#include <span>
#include <string>

#include "audio/voice/synthesizer.h"
#include "audio/voice/wording.h"
#include "city/streets_file.h"
#include "fuzzing.h"

namespace tamlo {
namespace {

/// Samples that a text gives, cut off after a minute.
std::size_t Samples(Synthesizer& voice, const std::string& text, int number) {
    std::size_t samples = 0;
    const auto most = static_cast<std::size_t>(voice.Rate(number)) * 60;
    voice.Synthesize({text, 10, number}, [&](std::span<const std::int16_t> some) {
        samples += some.size();
        return samples < most;
    });
    return samples;
}

}  // namespace
}  // namespace tamlo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    static const std::unique_ptr<Synthesizer> voice = MakeVoices();
    static const int voices = voice->Open();
    if (voices == 0) return 0;  // Without the voice's data there is nothing to try.
    constexpr std::size_t most_names = 3;
    const auto names = ReadStreetNames(TextOf(bytes, size));
    for (std::size_t i = 0; i < std::min(names.size(), most_names); ++i) {
        const std::string text =
            WithSpokenAmounts(CleanedForSpeech(" You are at the corner of " + names[i]));
        Check(Samples(*voice, text, static_cast<int>(size) % voices) > 0);
    }
    Check(Samples(*voice, "Center", 0) > 1000);
    return 0;
}
