// What the report says of one wave file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "report/measures.h"
#include "sound.h"
#include "sound/effects.h"

namespace tamlo::soundsmith {

struct Findings {
    const Effect* effect = nullptr;
    Sound sound;  ///< as read back from the file; no samples when that failed
    double lufs = 0.0;
    double peak = 0.0;                // dB below full scale
    double dc = 0.0;                  // per cent of full scale
    double seam = 0.0;                // see SeamRoughness
    VoiceMeasures voice{};            // of customers only
    std::vector<std::string> faults;  ///< what is outside its limits, in words

    /// The effect's role; of a customer also who it is and what is said.
    std::string Role() const;
    /// Where the sound is loudest and what it is made of, in words: what its pictures show.
    std::string InWords() const;
};

/// Reads and measures the effect's file in the folder `set`. Whatever is wrong is among the faults.
Findings Examine(const std::filesystem::path& set, const Effect& effect);

}  // namespace tamlo::soundsmith
