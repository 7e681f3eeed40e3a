// What the audio stream is made of: sources that each add their sound to a block.
#pragma once

#include "audio/mixing/change_bell.h"

namespace tamlo {

/// Rate of the one audio stream, in frames a second; its samples are float stereo, interleaved.
inline constexpr int stream_rate = 48000;

/// How many states of the stream are saved, so that what was rendered ahead of what is heard can be
/// rendered again. States are saved in slots, numbered from 0; slots are used again.
inline constexpr int most_states = 40;

/// Pulled by the mixer, on the audio thread: nothing here but RingOnChange allocates, frees or
/// waits for longer than some microseconds.
class Source {
  public:
    virtual ~Source() = default;

    /// Takes in everything requested so far, for the next frames. `heard` is false while they go
    /// nowhere, as without a sound card.
    virtual void BeginBlock(bool heard) noexcept = 0;
    /// Adds the next `frames` frames to `stereo` (2 * frames samples): always the same ones, unless
    /// BeginBlock or RestoreState is called in between.
    virtual void AddTo(float* stereo, int frames) noexcept = 0;
    /// Saves the present state.
    virtual void SaveState(int slot) noexcept = 0;
    /// Takes up a saved state, or the first state of all if the slot was saved before this source
    /// was attached.
    virtual void RestoreState(int slot) noexcept = 0;
    /// Another `frames` frames have been heard, up to the saved state: they won't be taken back.
    virtual void Commit(int slot, int frames) noexcept = 0;
    /// From now on rings, on any thread, when what was added before is no longer what is wanted;
    /// null ends that.
    virtual void RingOnChange(ChangeBell* bell) noexcept = 0;

    /// All of it for frames that are heard at once.
    void Take(float* stereo, int frames, bool heard) noexcept {
        BeginBlock(heard);
        AddTo(stereo, frames);
        SaveState(0);
        Commit(0, frames);
    }
};

}  // namespace tamlo
