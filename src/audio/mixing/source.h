// What the audio stream is made of: sources that each add their sound to a block.
#pragma once

#include "audio/mixing/change_bell.h"

namespace tamlo {

/// Rate of the one audio stream, in frames a second; its samples are float stereo, interleaved.
inline constexpr int stream_rate = 48000;

/// How many states of the stream are remembered, so that what was rendered ahead of what is heard
/// can be rendered anew. States are numbered from 0; numbers are used again.
inline constexpr int most_marks = 40;

/// Pulled by the sound card's callback, a wave-file writer or a test. All but RingOnChange is
/// called on the audio thread: allocates and frees nothing, waits for nothing longer than some
/// microseconds.
class Source {
  public:
    virtual ~Source() = default;

    /// Adds its next `frames` frames to `stereo` (2 * frames samples): always the same ones if
    /// nothing but ReturnTo has been called in between.
    virtual void AddTo(float* stereo, int frames) noexcept = 0;
    /// The next frames are to be what its maker wants by now. `heard` is false while they go
    /// nowhere, as without a sound card.
    virtual void Heed(bool /*heard*/) noexcept {}
    /// Remembers its present state.
    virtual void Remember(int /*mark*/) noexcept {}
    /// Takes that state again, or the one that it began with if it was not there yet.
    virtual void ReturnTo(int /*mark*/) noexcept {}
    /// Another `frames` frames are taken for good, and that state is where it has come to.
    virtual void Settle(int /*mark*/, int /*frames*/) noexcept {}
    /// Rings from now on, on any thread, when what was added before is no longer what its maker
    /// wants; null for no longer.
    virtual void RingOnChange(ChangeBell* /*bell*/) noexcept {}

    /// All of it in one, for frames that are taken at once.
    void Take(float* stereo, int frames, bool heard) noexcept {
        Heed(heard);
        AddTo(stereo, frames);
        Remember(0);
        Settle(0, frames);
    }
};

}  // namespace tamlo
