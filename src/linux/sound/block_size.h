// How long the blocks are in which the sound card takes the stream: short ones answer a key sooner,
// long ones outlast a busy machine.
#pragma once

#include <chrono>

namespace tamlo {

class BlockSize {
  public:
    using Time = std::chrono::steady_clock::time_point;

    /// Of a block that is opened now, in frames: 256, 512 or 1024.
    int Frames() const { return frames_; }
    /// The card has been opened with blocks of `Frames`; late ones before `now` do not count.
    void Opened(int late, Time now);
    /// What the number of late blocks, since the start, asks for at this moment.
    int Wanted(int late, Time now);
    /// The card is to be opened again with blocks of this size.
    void Change(int frames);

  private:
    int frames_ = 256;
    int late_before_ = 0;  ///< at the start of the window
    int last_late_ = 0;
    Time window_began_;
    Time calm_since_;
    /// How long no block must be late before shorter ones are tried. Each trial that fails doubles
    /// it, so that a machine that is always busy is left in peace.
    std::chrono::seconds calm_ = std::chrono::minutes(1);
    bool shortened_ = false;  ///< the last change was a trial
};

}  // namespace tamlo
