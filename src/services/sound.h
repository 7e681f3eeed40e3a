// Sound: a device, and buffers that each contain one wave file and play independently.
#pragma once

#include <memory>
#include <string_view>

namespace tamlo {

/// What a buffer made from a file lets the game control.
struct BufferDescription {
    static constexpr unsigned control_frequency = 32;
    static constexpr unsigned control_pan = 64;
    static constexpr unsigned control_volume = 128;
    unsigned flags = 0;
};

enum class PlayMode { once = 0, looping = 1 };

/// `SoundBuffer::GetStatus`: 1 while playing or looping, else 0.
inline constexpr int status_playing = 1;

/// One decoded wave file. A buffer whose file could not be opened is empty: it ends as soon as it
/// is played. Destroying a playing buffer silences it.
class SoundBuffer {
  public:
    virtual ~SoundBuffer() = default;

    /// Position in sample frames from the start; past the end counts as 0.
    virtual void SetCurrentPosition(unsigned frame) = 0;
    /// Hundredths of a decibel, 0 full to -10000 silent; values outside are limited to the range.
    virtual void SetVolume(int volume) = 0;
    /// Hundredths of a decibel, -10000 to 10000: a positive pan attenuates the left ear by that
    /// much, a negative one the right. Values outside are limited to the range.
    virtual void SetPan(int pan) = 0;
    /// Sample frames per second; the file's own rate until it is set.
    virtual int GetFrequency() const = 0;
    /// 100 to 200000; values outside are limited to the range.
    virtual void SetFrequency(int frequency) = 0;

    /// Plays from the current position. After a buffer played once has ended, its position is 0
    /// again.
    virtual void Play(PlayMode mode) = 0;
    /// Stops and keeps the position.
    virtual void Stop() = 0;
    virtual int GetStatus() const = 0;
    /// Seconds until a buffer played once ends at its present frequency: how long a wait for its
    /// end may sleep. 0 if it is not playing.
    virtual double SecondsLeft() const = 0;
};

/// The sound output device; must outlive its buffers.
class SoundDevice {
  public:
    virtual ~SoundDevice() = default;
    /// 2 asks for priority over other programs; back ends may ignore it.
    virtual void SetCooperativeLevel(int level) = 0;
    /// Loads NAME.wav from the program's own folder, stopped at position 0, volume 0, pan 0.
    /// Never null: see SoundBuffer for a file that cannot be opened.
    virtual std::unique_ptr<SoundBuffer> CreateBufferFromFile(
        std::string_view name, const BufferDescription& description) = 0;
};

/// The root of the sound service, from which the device is made.
class SoundSystem {
  public:
    virtual ~SoundSystem() = default;
    /// A device for the default output. Never null: without a sound card, sounds take their time in
    /// silence.
    virtual std::unique_ptr<SoundDevice> CreateDevice() = 0;
};

}  // namespace tamlo
