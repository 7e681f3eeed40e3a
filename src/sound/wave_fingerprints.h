// What the wave-file check knows of the files that the game was made with.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tamlo {

struct WaveFingerprint {
    std::string_view name;  ///< of the effect: the file's name without ".wav"
    std::size_t size;       ///< bytes
    std::size_t fields;     ///< text fields in it, see CountTextFields
    std::size_t last;       ///< bytes in the last of them
};

/// In the order of the check.
// clang-format off
inline constexpr auto wave_fingerprints = std::to_array<WaveFingerprint>({
    {"tamlo1",     304242,   7,    45},
    {"tamlo10",     79530,  13,     3},
    {"tamlo11",    176578,   3,   129},
    {"tamlo12",     61932,   3,   103},
    {"tamlo13",     69260,   2,    18},
    {"tamlo14",     79612,   3,    18},
    {"tamlo15",    211862,   5,    54},
    {"tamlo16",    316268,   7,    73},
    {"tamlo17",     65256,  26,    14},
    {"tamlo18",      2348,   1,  2331},
    {"tamlo19",    132544,   1,   102},
    {"tamlo2",     141316,  15,    54},
    {"tamlo20",    176444,  14,   343},
    {"tamlo21",    622798,  19,   537},
    {"tamlo22",    529476,   1,   165},
    {"tamlo23",     85936,   4,    32},
    {"tamlo24",     88402,   2,    21},
    {"tamlo25",    377540,   6,    25},
    {"tamlo26",    131980,   1,   414},
    {"tamlo27",     17684,   7,   258},
    {"tamlo28",    255824,   5,   356},
    {"tamlo29",    101304,   8,   211},
    {"tamlo3",     176594,  15,   382},
    {"tamlo30",    302020,   7,     9},
    {"tamlo31",    123676,   2,   208},
    {"tamlo32",    205702,   4,   221},
    {"tamlo33",     63252,   2,   260},
    {"tamlo34",    264644,   7,    36},
    {"tamlo35",    108360,   1,   232},
    {"tamlo36",    132514,   1,   141},
    {"tamlo37",     75256,  23,  7185},
    {"tamlo38",     35324,   2,   422},
    {"tamlo39",     88244,  12,    35},
    {"tamlo4",     450032,   5,    34},
    {"tamlo40",     79988,   1,    44},
    {"tamlo5",    1199564,   1,    51},
    {"tamlo6",     191238,   4,   139},
    {"tamlo7",     189416,   1,   204},
    {"tamlo8",     114890,   3,   134},
    {"tamlo9",     176548,   9,   103},
    {"tamlob1",    441264,   2,    43},
    {"tamlob2",    441222,   1,    36},
    {"tamlob3",    441224,   1,   229},
    {"tamlob4",    441262,   1,   203},
    {"tamlo80",      4454,   3,  1302},
    {"tamlo81",     13348,   2,    23},
    {"tamlo82",     97064,  11,    47},
    {"tamlo83",     37626,  11,  3253},
    {"tamlo84",     13960,   2,   143},
    {"tamlo85",      3414,   3,  3369},
    {"tamlo86",    198494,  62,  1430},
    {"tamlo87",    264852,   2,    15},
    {"tamlo88",    220544,   3,   162},
    {"tamlo89",    132344,  12,    44},
});
// clang-format on
static_assert(wave_fingerprints.size() == 54);

}  // namespace tamlo
