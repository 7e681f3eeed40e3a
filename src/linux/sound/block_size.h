// How long the blocks are in which the sound card takes the stream: short ones answer a key sooner,
// long ones outlast a busy machine.
#pragma once

#include <chrono>

namespace tamlo {

class BlockSize {
  public:
    using Time = std::chrono::steady_clock::time_point;

    /// Frames; the longest is the shortest times a power of two.
    struct Range {
        int shortest = 256;
        int longest = 1024;
    };

    BlockSize() : BlockSize(Range()) {}
    explicit BlockSize(Range range) : range_(range), frames_(range.shortest) {}

    /// Of a block that is opened now, in frames; at first the shortest.
    int Frames() const { return frames_; }
    /// The card has been opened with blocks of `Frames`; late ones before `now` do not count.
    void Opened(int late, Time now);
    /// What the number of late blocks, since the start, asks for at this moment.
    int Wanted(int late, Time now);
    /// The card takes blocks of this size from now on.
    void Change(int frames);

  private:
    Range range_;
    int frames_;
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
