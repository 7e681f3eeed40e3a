// What the stamps of a measured program look like in the file that they are shared by.
#pragma once

#include <atomic>
#include <cstdint>

namespace tamlo::latency {

enum class StampKind : std::int32_t {
    device = 1,  ///< a sound device was opened; `value` is the number of frames of its blocks
    key = 2,     ///< the program took a key press from the queue
    block = 3,   ///< a block was filled; `value` is its first audible frame, -1 if there is none
};

struct Stamp {
    std::int64_t time;  ///< ns of the monotonic clock, at the start of a block's filling
    StampKind kind;
    std::int32_t value;
};

/// More than ten minutes of the smallest blocks; then the oldest are written over.
constexpr std::uint64_t most_stamps = 1 << 18;

struct StampFile {
    std::atomic<std::uint64_t> count;  ///< of all stamps ever made
    Stamp stamps[most_stamps];
};

}  // namespace tamlo::latency
