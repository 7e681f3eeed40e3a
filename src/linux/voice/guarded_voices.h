// The voices of the game, each family in a process of its own, with another one to take over.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "audio/voice/synthesizer.h"
#include "linux/voice/voice_family.h"

namespace tamlo {

/// Told on the voice's thread.
struct GuardedVoiceHooks {
    /// A text that nobody could speak: two tones are heard in its place.
    std::function<void(std::string_view text)> unspoken{};
    /// A sentence for the player about a family that has been left out; the voice that takes over
    /// says it as well.
    std::function<void(std::string_view sentence)> explain{};
};

/// How many voices each family has when all are installed.
using FamilySizes = std::vector<int>;

/// The families as one list of voices. Whatever a family does, each text is spoken by its own
/// voice, else by the first voice of the next family, else replaced by tones, within 3 s. A family
/// that is slow to open speaks from the moment it is ready. The numbers of the voices do not depend
/// on what fails: while a family may still come, the list is as long as if it was there.
std::unique_ptr<Synthesizer> MakeGuardedVoices(const std::shared_ptr<VoiceHost>& host,
                                               const std::shared_ptr<VoiceReports>& reports,
                                               FamilySizes sizes, GuardedVoiceHooks hooks = {},
                                               VoicePatience patience = {});

}  // namespace tamlo
