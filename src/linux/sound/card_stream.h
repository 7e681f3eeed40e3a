// One stream to the sound card: opened, asked for blocks, closed.
#pragma once

#include <chrono>

namespace tamlo {

/// All of it is for one thread.
class CardStream {
  public:
    virtual ~CardStream() = default;

    /// Blocks asked for so far.
    virtual int Blocks() const = 0;
    /// Whether the card or its server is known to be gone.
    virtual bool Gone() const = 0;
    /// Whether the server has paused it, and will go on of itself.
    virtual bool Paused() const { return false; }
};

/// How long servers take to find their pace: late blocks before are not counted.
inline constexpr std::chrono::seconds settling_time{1};

}  // namespace tamlo
