// The table of effects: every wave file of the game, its format, its level, what the start-up check
// expects of it, and what it stands for. The game reads it, and so does the program that makes the
// files.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace tamlo {

/// What the start-up check finds in a wave file.
struct Fingerprint {
    int size;    ///< bytes; 0: the file is not checked
    int fields;  ///< text fields in it, see CountTextFields
    int last;    ///< bytes in the last of them
};

struct Effect {
    std::string_view name;  ///< the file's name without ".wav"
    int rate;               ///< samples per second
    int bits;               ///< per sample, 8 or 16; one channel
    bool loop;              ///< played in a loop, so it must have no audible seam
    double lufs;            ///< loudness to aim at
    double peak_db;         ///< highest level allowed, in dB of full scale
    Fingerprint text;
    std::string_view role;
};

/// All 93, in the order of their numbers, the backgrounds last.
std::span<const Effect> Effects();

/// The 54 that have a fingerprint, in the order of the start-up check.
std::vector<const Effect*> CheckedEffects();

/// The row of that name; nullptr if there is none.
const Effect* FindEffect(std::string_view name);

}  // namespace tamlo
