// The engines of this edition.
#include "audio/voice/voices.h"

#include "audio/voice/synthesizer.h"

namespace tamlo {

std::unique_ptr<Synthesizer> MakeVoices() {
    return JoinFamilies(MakeEspeak(), voice_table.size(), MakeFlite());
}

}  // namespace tamlo
