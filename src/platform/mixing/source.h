// What the audio stream is made of: sources that each add their sound to a block.
#pragma once

namespace tamlo {

/// Rate of the one audio stream, in frames a second; its samples are float stereo, interleaved.
inline constexpr int stream_rate = 48000;

/// Pulled by the sound card's callback, a wave-file writer or a test.
class Source {
  public:
    virtual ~Source() = default;
    /// Adds its next `frames` frames to `stereo` (2 * frames samples). Called on the audio
    /// thread: allocates and frees nothing, waits for nothing longer than some microseconds.
    /// `heard` is false while the block goes nowhere, as without a sound card.
    virtual void AddTo(float* stereo, int frames, bool heard) noexcept = 0;
};

}  // namespace tamlo
