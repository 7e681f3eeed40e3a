// All that is heard, in one object: the mixer, the sound service over it, the ring that the page's
// worklet reads, and the clock that lets the time pass where nothing reads.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "audio/mixing/mixer.h"
#include "audio/output/clock_output.h"
#include "audio/output/mixed_sound.h"
#include "audio/output/tap.h"
#include "web/sound/ring_filler.h"

namespace tamlo {

class RingOutput {
  public:
    /// `ring` is the page's as well and outlives this object.
    RingOutput(SharedRing& ring, WaveReader read);
    /// Buffers must be gone and sources detached.
    ~RingOutput();
    RingOutput(const RingOutput&) = delete;
    RingOutput& operator=(const RingOutput&) = delete;

    /// Waits until the worklet takes the stream, but not for longer than `most`.
    void AwaitWorklet(std::chrono::milliseconds most) const;
    /// Waits until all that was rendered so far has been taken, or nothing takes any more.
    void AwaitHeard() const;

    SoundSystem& Sound() { return sound_; }
    void Attach(Source& source) { mixer_.Attach(source); }
    void Detach(Source& source) { mixer_.Detach(source); }
    /// A short alert tone, without waiting for its end.
    void Beep() { sound_.Beep(); }
    /// Whether the worklet takes the stream, or only a clock.
    bool Audible() const { return tap_->InCharge() == Output::card; }

  private:
    void Run();

    SharedRing& ring_;
    std::shared_ptr<RingBell> bell_ = std::make_shared<RingBell>();
    Mixer mixer_;
    MixedSoundSystem sound_;
    std::shared_ptr<Tap> tap_;
    std::atomic<bool> ending_{false};
    std::thread thread_;
    ClockOutput clock_;
};

}  // namespace tamlo
