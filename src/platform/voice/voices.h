// The voices on offer: a table of our own, since the engine's list changes its order with the
// language and holds entries whose data is missing.
#pragma once

#include <array>
#include <cstddef>

namespace tamlo {

struct VoiceEntry {
    const char* name;     ///< the engine's file name of the language
    const char* variant;  ///< the engine's file name of the speaker, or empty for the plain one
    const char* person;   ///< what players are told
};

/// The player's configuration stores an index into those of the table that are installed: new
/// voices go to the end.
inline constexpr std::array voice_table{
    VoiceEntry{"gmw/en-US", "", "American man"},
    VoiceEntry{"gmw/en", "", "British man"},
    VoiceEntry{"gmw/en-US", "f3", "American woman"},
    VoiceEntry{"gmw/en", "f2", "British woman"},
    VoiceEntry{"gmw/en-US", "f4", "second American woman"},
    VoiceEntry{"gmw/en-US", "m3", "second American man"},
    VoiceEntry{"gmw/en-GB-scotland", "", "Scottish man"},
    VoiceEntry{"gmw/en-GB-x-rp", "", "second British man"},
    VoiceEntry{"gmw/en-029", "", "Caribbean man"},
    VoiceEntry{"gmw/en-US", "klatt2", "third American man"},
};
static_assert(voice_table.size() == 10);

}  // namespace tamlo
