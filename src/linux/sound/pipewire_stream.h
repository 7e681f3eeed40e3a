// A stream to PipeWire, filled in the server's own cycle: each block is mixed when the graph asks
// for it, and heard with the next one.
#pragma once

#include <atomic>
#include <memory>

#include "audio/output/tap.h"
#include "linux/sound/card_stream.h"

namespace tamlo {

class PipeWireStream final : public CardStream {
  public:
    /// Begins to open the server's default sink, with blocks of so many frames; another program may
    /// have asked for shorter ones, or insist on longer ones. `late` counts cycles of the graph
    /// that were missed; it must outlive the stream.
    PipeWireStream(std::shared_ptr<Tap> tap, int frames, std::atomic<int>& late);
    /// Never waits for the server.
    ~PipeWireStream() override;
    PipeWireStream(const PipeWireStream&) = delete;
    PipeWireStream& operator=(const PipeWireStream&) = delete;

    Opening Progress() const override;
    int Blocks() const override;
    int Frames() const override;
    bool Gone() const override;
    Resizing CanResize() const override { return Resizing::live; }
    void Resize(int frames) override;

  private:
    class Connection;
    std::unique_ptr<Connection> connection_;
};

}  // namespace tamlo
