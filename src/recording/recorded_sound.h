// The rehearsal's sounds, played into the recording.
#pragma once

#include <functional>

#include "recording/desk.h"
#include "services/sound.h"

namespace tamlo {

/// What the game asks and learns is the rehearsal's; the mixers of the recording are told the same
/// at the same moment.
class RecordedSound final : public SoundSystem {
  public:
    /// `part` says where NAME.wav belongs. The others must outlive this object and its devices.
    RecordedSound(SoundSystem& rehearsed, Desk& desk,
                  std::function<Part(std::string_view name)> part)
        : rehearsed_(rehearsed), desk_(desk), part_(std::move(part)) {}
    std::unique_ptr<SoundDevice> CreateDevice() override;

  private:
    SoundSystem& rehearsed_;
    Desk& desk_;
    std::function<Part(std::string_view)> part_;
};

}  // namespace tamlo
