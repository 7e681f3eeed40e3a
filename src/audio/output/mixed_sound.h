// The sound service over the mixer: devices and buffers whose wave files lie in one folder.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "audio/mixing/mixer.h"
#include "audio/mixing/wave_file.h"
#include "services/sound.h"

namespace tamlo {

/// Wave files of one folder, decoded once and kept for every buffer that asks again.
class WaveLibrary {
  public:
    explicit WaveLibrary(std::string folder) : folder_(std::move(folder)) {}

    /// The sound of NAME.wav; null if the file is missing, unreadable, longer than 64 MiB, or has
    /// no sound in it. A file that was missing is looked for again the next time.
    std::shared_ptr<const WaveData> Find(std::string_view name);

  private:
    std::string folder_;
    std::map<std::string, std::shared_ptr<const WaveData>, std::less<>> waves_;
};

class MixedSoundSystem final : public SoundSystem {
  public:
    /// `folder` is the program's own, where the wave files lie. The mixer must outlive this and
    /// every device and buffer made from it.
    MixedSoundSystem(Mixer& mixer, std::string folder);
    ~MixedSoundSystem() override;

    std::unique_ptr<SoundDevice> CreateDevice() override;

    /// A short alert tone, without waiting for its end; another one cuts it off.
    void Beep();

  private:
    Mixer& mixer_;
    std::shared_ptr<WaveLibrary> library_;
    std::unique_ptr<SoundBuffer> beep_;
};

}  // namespace tamlo
