// The sound service over the mixer: devices and buffers whose wave files lie in one place.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "audio/mixing/mixer.h"
#include "audio/mixing/wave_file.h"
#include "services/sound.h"

namespace tamlo {

/// The bytes of the wave file NAME.wav; nothing if it is missing, unreadable or longer than 64 MiB.
using WaveReader = std::function<std::optional<std::string>(const std::string& name)>;
/// For an edition whose wave files lie in a folder of the disk.
WaveReader WavesOfFolder(std::string folder);

/// Wave files, decoded once and kept for every buffer that asks again.
class WaveLibrary {
  public:
    explicit WaveLibrary(WaveReader read) : read_(std::move(read)) {}

    /// The sound of NAME.wav; null if the file can't be read or has no sound in it. A file that was
    /// missing is looked for again the next time.
    std::shared_ptr<const WaveData> Find(std::string_view name);

  private:
    WaveReader read_;
    std::map<std::string, std::shared_ptr<const WaveData>, std::less<>> waves_;
};

class MixedSoundSystem final : public SoundSystem {
  public:
    /// The mixer must outlive this and every device and buffer made from it.
    MixedSoundSystem(Mixer& mixer, WaveReader read);
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
