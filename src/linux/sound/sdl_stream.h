// A stream to the sound card through the audio library, which asks for each block when the one
// before is about to be heard.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>

#include "audio/output/tap.h"
#include "linux/sound/card_stream.h"

namespace tamlo {

/// A server that hangs may hold up its thread: in opening and in closing for as long as it hangs.
class SdlStream final : public CardStream {
  public:
    using Time = std::chrono::steady_clock::time_point;

    /// Opens the default card with blocks of so many frames, by the audio library's present driver;
    /// null if there is none. Blocks are asked for from then on. `late` counts those that came so
    /// late that a drop-out is likely; it must outlive the stream.
    static std::unique_ptr<SdlStream> Open(std::shared_ptr<Tap> tap, int frames,
                                           std::atomic<int>& late);
    ~SdlStream() override;
    SdlStream(const SdlStream&) = delete;
    SdlStream& operator=(const SdlStream&) = delete;

    /// Whether the blocks are filled from the tap, or with silence, as at first.
    void Connect(bool connected) { connected_ = connected; }
    int Blocks() const override { return blocks_; }
    /// Late blocks before this moment are not counted.
    Time CountedFrom() const { return counted_from_; }
    bool Gone() const override;

  private:
    SdlStream(std::shared_ptr<Tap> tap, std::atomic<int>& late);
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
