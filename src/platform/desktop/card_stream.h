// One stream to the sound card: opened, asked for blocks, closed.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>

#include "platform/mixing/tap.h"

namespace tamlo {

/// Everything but the callback is for one thread, which a server that hangs may hold up: in opening
/// and in closing for as long as it hangs.
class CardStream {
  public:
    using Time = std::chrono::steady_clock::time_point;

    /// Opens the default card with blocks of so many frames, by the audio library's present driver;
    /// null if there is none. Blocks are asked for from then on. `late` counts those that came so
    /// late that a drop-out is likely; it must outlive the stream.
    static std::unique_ptr<CardStream> Open(std::shared_ptr<Tap> tap, int frames,
                                            std::atomic<int>& late);
    ~CardStream();
    CardStream(const CardStream&) = delete;
    CardStream& operator=(const CardStream&) = delete;

    /// Whether the blocks are filled from the tap, or with silence, as at first.
    void Connect(bool connected) { connected_ = connected; }
    /// Blocks asked for so far.
    int Blocks() const { return blocks_; }
    /// Late blocks before this moment are not counted: servers take it to find their pace.
    Time CountedFrom() const { return counted_from_; }
    /// Whether the card or its server is known to be gone.
    bool Gone() const;

  private:
    CardStream(std::shared_ptr<Tap> tap, std::atomic<int>& late);
    static void OnBlock(void* stream, std::uint8_t* bytes, int count);
    void Fill(float* stereo, int frames);

    std::shared_ptr<Tap> tap_;
    unsigned device_ = 0;  ///< the audio library's number of it
    std::atomic<bool> connected_{false};
    std::atomic<int> blocks_{0};
    const Time counted_from_;

    // The audio thread's own.
    std::atomic<int>& late_;
    Time last_block_;
};

}  // namespace tamlo
