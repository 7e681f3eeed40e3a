// Reading a wave file, its text fields and its loudness for the tests of the sound set: written
// apart from the game's readers and from soundsmith's, so that no mistake is made twice.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tamlo {

struct WaveContent {
    std::string error;  // what is wrong with the file; empty when it is a valid wave file
    int channels = 0;
    int rate = 0;
    int bits = 0;
    std::vector<double> samples;  // full scale at -1 and 1
};

WaveContent InspectWave(const std::string& bytes);

struct FieldCount {
    std::size_t count = 1;
    std::size_t last = 0;
};

// One character at a time, as a table of states would have it. Knows no quotes: where a file has
// one that opens a field, `odd` is set.
FieldCount CountFields(const std::string& bytes, bool& odd);

// Integrated loudness after ITU-R BS.1770-4 in LUFS, one channel; a sound shorter than a block is
// one block.
double IntegratedLoudness(const WaveContent& wave);

}  // namespace tamlo
