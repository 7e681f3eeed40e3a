// One stream to the sound card: opened, asked for blocks, closed.
#pragma once

#include <chrono>
#include <memory>

namespace tamlo {

/// What has become of the opening of a stream.
enum class Opening {
    awaited,
    opened,
    none,   ///< no such server, or no card
    other,  ///< another server that only speaks its protocol
    hangs,  ///< it is there and does not answer
};

/// How a stream can take blocks of another length.
enum class Resizing {
    none,
    live,        ///< by Resize
    by_another,  ///< by another stream in its place
};

/// All of it is for one thread.
class CardStream {
  public:
    virtual ~CardStream() = default;

    virtual Opening Progress() const { return Opening::opened; }
    /// Blocks asked for so far.
    virtual int Blocks() const = 0;
    /// Frames of a block, as the card asks for them.
    virtual int Frames() const = 0;
    /// Whether the card or its server is known to be gone.
    virtual bool Gone() const = 0;
    /// Whether the server has paused it, and will go on by itself.
    virtual bool Paused() const { return false; }

    virtual Resizing CanResize() const { return Resizing::none; }
    virtual void Resize(int /*frames*/) {}
    /// A stream to the same card, with blocks of so many frames; silent until it is connected. Null
    /// if the card serves only one.
    virtual std::unique_ptr<CardStream> Another(int /*frames*/) { return nullptr; }
    /// Whether the blocks are filled from the mixer, or with silence.
    virtual void Connect(bool /*connected*/) {}
};

/// How long servers take to find their pace: late blocks before are not counted.
inline constexpr std::chrono::seconds settling_time{1};

}  // namespace tamlo
