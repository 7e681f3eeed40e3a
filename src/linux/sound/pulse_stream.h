// A stream to PulseAudio that holds much and takes it back: its blocks are mixed long before they
// are heard, so that a machine that stands still for a moment leaves no gap, and rendered again
// from the next millisecond on when a key changes what is to be heard.
#pragma once

#include <atomic>
#include <memory>

#include "audio/output/tap.h"
#include "linux/sound/card_stream.h"
#include "linux/sound/event_bell.h"

namespace tamlo {

class PulseStream final : public CardStream {
  public:
    /// Begins to open the server's default sink. Blocks of so many frames are asked for, and filled
    /// from the tap, as soon as it answers. `changes` rings when what the mixer has rendered is to
    /// be taken back. `late` counts how often the server had nothing left; it must outlive the
    /// stream.
    PulseStream(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes, int frames,
                std::atomic<int>& late);
    /// Waits for a moment, so that what fades out is heard; never for the server.
    ~PulseStream() override;
    PulseStream(const PulseStream&) = delete;
    PulseStream& operator=(const PulseStream&) = delete;

    Opening Progress() const override;
    int Blocks() const override;
    int Frames() const override;
    bool Gone() const override;
    bool Paused() const override;

  private:
    class Connection;
    std::unique_ptr<Connection> connection_;
};

}  // namespace tamlo
