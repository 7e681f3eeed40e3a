// The memory that the page's audio worklet shares with the game.
#pragma once

#include <atomic>
#include <cstdint>

namespace tamlo {

/// Read and written by site/ring-worklet.js as 32-bit words in this order. Positions and counts are
/// frames; they only grow, and wrap.
struct SharedRing {
    static constexpr std::uint32_t frames = 16384;  ///< a power of two
    static constexpr std::uint32_t quantum = 128;   ///< that the worklet takes at a time

    std::atomic<std::uint32_t> taken{0};    ///< by the worklet
    std::atomic<std::uint32_t> written{0};  ///< by our thread
    std::atomic<std::uint32_t> asked{0};    ///< that the browser wanted, taken or not
    std::atomic<std::uint32_t> missing{0};  ///< that were not there, once some had been
    std::atomic<std::uint32_t> burst{0};    ///< the most taken at once in the last seconds
    std::atomic<std::uint32_t> changed{0};  ///< position of the last change of what was written
    std::atomic<std::uint32_t> changes{0};  ///< how many there were
    std::atomic<std::uint32_t> late{0};     ///< of these, overtaken by the worklet
    float samples[2 * frames] = {};         ///< stereo
};

}  // namespace tamlo
