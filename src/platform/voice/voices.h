// The voices on offer: a table of our own, since the engine's list changes its order with the
// language and holds entries whose data is missing.
#pragma once

#include <array>
#include <cstddef>

namespace tamlo {

struct VoiceEntry {
    const char* name;     ///< the engine's file name of the language
    const char* variant;  ///< the engine's file name of the speaker, or empty for the plain one
};

/// The player's configuration stores an index into those of the table that are installed: new
/// voices go to the end.
inline constexpr std::array voice_table{
    VoiceEntry{"gmw/en-US", ""},          VoiceEntry{"gmw/en", ""},
    VoiceEntry{"gmw/en-US", "f3"},        VoiceEntry{"gmw/en", "f2"},
    VoiceEntry{"gmw/en-US", "f4"},        VoiceEntry{"gmw/en-US", "m3"},
    VoiceEntry{"gmw/en-GB-scotland", ""}, VoiceEntry{"gmw/en-GB-x-rp", ""},
    VoiceEntry{"gmw/en-029", ""},         VoiceEntry{"gmw/en-US", "klatt2"},
};
static_assert(voice_table.size() == 10);

}  // namespace tamlo
