// Sound that is told in captions as well as heard.
#pragma once

#include <memory>

#include "reading/captions.h"
#include "services/sound.h"

namespace tamlo {

/// Forwards each call; reports a sound after it starts.
class CaptionedSound : public SoundSystem {
  public:
    /// Both must outlive this object, its devices and their buffers.
    CaptionedSound(SoundSystem& real, Captions& captions) : real_(real), captions_(captions) {}
    std::unique_ptr<SoundDevice> CreateDevice() override;

  private:
    SoundSystem& real_;
    Captions& captions_;
};

}  // namespace tamlo
