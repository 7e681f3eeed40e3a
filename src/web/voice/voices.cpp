// The engines of this edition.
#include "audio/voice/synthesizer.h"

namespace tamlo {

std::unique_ptr<Synthesizer> MakeVoices() {
    return MakeEspeak();
}

}  // namespace tamlo
