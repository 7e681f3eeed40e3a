// All that is heard, in one object: the mixer, the sound service over it, and the outputs.
#pragma once

#include <memory>
#include <string>

#include "audio/mixing/mixer.h"
#include "audio/output/clock_output.h"
#include "audio/output/mixed_sound.h"
#include "audio/output/tap.h"
#include "linux/sound/event_bell.h"
#include "linux/sound/sound_card.h"

namespace tamlo {

/// Make it before any window, end it after. The stream runs from the construction on and never
/// stops, so that no first syllable is lost.
class SoundOutput {
  public:
    /// `sounds_folder` is where the wave files lie. Begins to open the card.
    explicit SoundOutput(std::string sounds_folder);
    /// Buffers must be gone and sources detached.
    ~SoundOutput();
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    /// Until then the beginning of a sound may be lost. Takes as long as the sound server needs to
    /// answer (some 20 ms), at most about a second and a half.
    void AwaitOpening() const { card_.AwaitOpening(); }

    SoundSystem& Sound() { return sound_; }
    /// For the voice: see Mixer.
    void Attach(Source& source) { mixer_.Attach(source); }
    void Detach(Source& source) { mixer_.Detach(source); }
    /// A short alert tone, without waiting for its end.
    void Beep() { sound_.Beep(); }

    /// See ClockOutput::TurnWithoutThread.
    double TurnClock() { return clock_.TurnWithoutThread(); }

    CardReport Card() const { return card_.Report(); }
    /// Whether a sound card takes the stream, or only a clock.
    bool Audible() const { return tap_->InCharge() == Output::card; }
    /// Frames of the stream taken so far.
    std::int64_t Frames() const { return tap_->Frames(); }

  private:
    /// Shared: a card left behind in a driver that hangs outlives this object.
    std::shared_ptr<EventBell> changes_;
    Mixer mixer_;
    MixedSoundSystem sound_;
    std::shared_ptr<Tap> tap_;
    SoundCard card_;
    ClockOutput clock_;
};

}  // namespace tamlo
