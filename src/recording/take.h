// One file of a recording: a mixer of its own, the speech that it adds, and where it writes.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "audio/mixing/mixer.h"
#include "audio/output/mixed_sound.h"
#include "audio/voice/speech_stream.h"
#include "recording/sound_file.h"
#include "rehearsal/virtual_time.h"

namespace tamlo {

/// What a file holds.
enum class Part { all, voice, effects, backgrounds };

class Take {
  public:
    /// Frames of the stream in a tick.
    static constexpr int tick_frames = stream_rate / static_cast<int>(ticks_per_second);

    Take(Part part, const std::string& path, WaveReader read);
    ~Take();
    Take(const Take&) = delete;
    Take& operator=(const Take&) = delete;

    /// Whether what belongs to `part` is heard in this file.
    bool Has(Part part) const { return part_ == Part::all || part_ == part; }
    MixedSoundSystem& Sounds() { return sounds_; }

    /// Speech is heard from the present moment on, or after what is already being spoken.
    void Say(std::span<const float> samples);
    void Hush();
    void SetVolume(float gain) { voice_.SetGain(gain); }

    /// Writes what is heard up to `now`.
    void RenderTo(Ticks now);
    void Close() { file_.Close(); }

  private:
    void FeedVoice();

    Part part_;
    SoundFile file_;
    Mixer mixer_;
    SpeechStream voice_;
    MixedSoundSystem sounds_;
    std::vector<float> unsaid_;  ///< samples that the stream has no room for yet
    std::size_t said_ = 0;       ///< of these, how many it has got
    Ticks rendered_ = 0;
};

}  // namespace tamlo
