// The table of effects: every wave file of the game, its format, its level and what it stands for.
#pragma once

#include <span>
#include <string_view>

namespace tamlo::soundsmith {

// What the game's wave-file check finds in a file: its bytes, the text fields it reads as, and the
// characters of the last field. size 0: the file is not checked.
struct Fingerprint {
    int size;
    int fields;
    int last;
};

struct Effect {
    std::string_view name;  // the file's name without ".wav"
    int rate;               // samples a second
    int bits;               // 8 or 16 a sample, one channel
    bool loop;              // played round and round, so it must have no seam
    double lufs;            // loudness to aim at
    double peak_db;         // no sample above this, in dB below full scale
    Fingerprint text;
    std::string_view role;
};

// All 93, in the order of their numbers, the backgrounds last.
std::span<const Effect> Effects();

// The row of that name; nullptr when there is none.
const Effect* FindEffect(std::string_view name);

}  // namespace tamlo::soundsmith
