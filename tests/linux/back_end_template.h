// The smallest back end that keeps the contract, to begin a new one from: a stream to a device.
#pragma once

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <span>
#include <thread>
#include <utility>

#include "audio/output/tap.h"
#include "linux/sound/card_stream.h"
#include "services/thread.h"

namespace tamlo {

/// Pulls the tap on a thread of its own, block by block, and gives each block to the device.
class TemplateStream final : public CardStream {
  public:
    static constexpr int block = 256;  // frames
    /// Stands for the device: takes a block, waits until it is about to be heard, and returns false
    /// once the device is gone. Called on the stream's thread.
    using Device = std::function<bool(std::span<const float> stereo)>;

    /// Null if the device can't be opened. Blocks are asked for from then on.
    static std::unique_ptr<TemplateStream> Open(std::shared_ptr<Tap> tap, Device device) {
        if (!device) return nullptr;
        std::unique_ptr<TemplateStream> stream(
            new TemplateStream(std::move(tap), std::move(device)));
        // The thread may be empty if the system has none left: then there is no stream.
        stream->thread_ = StartThread([stream = stream.get()] { stream->Run(); });
        if (!stream->thread_.joinable()) return nullptr;
        return stream;
    }
    ~TemplateStream() override {
        ending_ = true;
        if (thread_.joinable()) thread_.join();
    }
    TemplateStream(const TemplateStream&) = delete;
    TemplateStream& operator=(const TemplateStream&) = delete;

    int Blocks() const override { return blocks_; }
    int Frames() const override { return block; }
    bool Gone() const override { return gone_; }

  private:
    TemplateStream(std::shared_ptr<Tap> tap, Device device)
        : tap_(std::move(tap)), device_(std::move(device)) {}

    void Run() {
        std::array<float, 2 * block> stereo{};
        while (!ending_ && !gone_) {
            tap_->Pull(stereo.data(), block);
            ++blocks_;
            if (!device_(stereo)) gone_ = true;
        }
    }

    const std::shared_ptr<Tap> tap_;
    const Device device_;
    std::atomic<int> blocks_{0};
    std::atomic<bool> gone_{false};
    std::atomic<bool> ending_{false};
    std::thread thread_;
};

}  // namespace tamlo
