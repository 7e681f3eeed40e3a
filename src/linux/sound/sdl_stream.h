// A stream to the sound card through the audio library, which asks for each block when the one
// before is about to be heard.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "audio/output/tap.h"
#include "linux/sound/card_stream.h"

namespace tamlo {

/// A server that hangs may hold up its thread: in opening and in closing for as long as it hangs.
class SdlStream final : public CardStream {
  public:
    /// Opens the default card with blocks of so many frames, by a driver of the audio library
    /// (empty for its own choice); null if there is none. Blocks are asked for from then on. `late`
    /// counts those that came so late that a drop-out is likely; it must outlive the stream.
    static std::unique_ptr<SdlStream> Open(const std::string& driver, std::shared_ptr<Tap> tap,
                                           int frames, std::atomic<int>& late);
    /// The driver of the streams that are open.
    static std::string Driver();
    ~SdlStream() override;
    SdlStream(const SdlStream&) = delete;
    SdlStream& operator=(const SdlStream&) = delete;

    int Blocks() const override { return blocks_; }
    int Frames() const override { return frames_; }
    bool Gone() const override;
    Resizing CanResize() const override { return Resizing::by_another; }
    std::unique_ptr<CardStream> Another(int frames) override;
    void Connect(bool connected) override { connected_ = connected; }

  private:
    using Time = std::chrono::steady_clock::time_point;
    /// Keeps the audio library open; shared by its streams.
    class Library;

    SdlStream(std::shared_ptr<Library> library, std::shared_ptr<Tap> tap, int frames,
              std::atomic<int>& late);
    bool OpenDevice();
    static void OnBlock(void* stream, std::uint8_t* bytes, int count);
    void Fill(float* stereo, int frames);

    const std::shared_ptr<Library> library_;
    const std::shared_ptr<Tap> tap_;
    const int frames_;
    unsigned device_ = 0;  ///< the audio library's number of it
    std::atomic<bool> connected_{false};
    std::atomic<int> blocks_{0};
    const Time counted_from_;

    // The audio thread's own.
    std::atomic<int>& late_;
    Time last_block_;
};

}  // namespace tamlo
