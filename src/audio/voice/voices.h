// The voices on offer: tables of our own, since an engine's list changes its order with the
// language and holds entries whose data is missing.
#pragma once

#include <array>
#include <cstddef>

namespace tamlo {

// The player's configuration stores a voice's number: the voices of voice_table come first, then
// those of flite_voices. A number means the same voice everywhere: where a voice is not installed,
// the first one of its table speaks in its place, and the list ends after the last installed one.

struct VoiceEntry {
    const char* name;     ///< the engine's file name of the language
    const char* variant;  ///< the engine's file name of the speaker, or empty for the plain one
    const char* person;   ///< what players are told
};

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
/// Fixed for good, since the next table's voices are counted after it: new ones go to the end of
/// the last table.
static_assert(voice_table.size() == 10);

struct FliteVoice {
    const char* name;    ///< in the name of its library
    const char* person;  ///< what players are told
    float length;        ///< of what it says by itself, as a multiple of what the first voice takes
    float level;         ///< by which it is made as loud as the first voice
};

inline constexpr std::array flite_voices{
    FliteVoice{"cmu_us_slt", "American woman with a natural voice", 1.05F, 0.60F},
    FliteVoice{"cmu_us_rms", "American man with a natural voice", 1.19F, 1.05F},
    FliteVoice{"cmu_us_awb", "Scottish man with a natural voice", 1.02F, 0.90F},
};

/// The voices where all are installed.
inline constexpr int most_voices = static_cast<int>(voice_table.size() + flite_voices.size());

}  // namespace tamlo
