// The voices that this system has, behind processes of their own.
#pragma once

#include <memory>
#include <vector>

#include "linux/voice/guarded_voices.h"

namespace tamlo {

/// To be made while the process has one thread, and before anything is opened.
class InstalledVoices {
  public:
    InstalledVoices();

    /// For VoiceSpeech. Where no process can be made, the libraries run in this one.
    SynthesizerMaker Maker(GuardedVoiceHooks hooks = {}) const;
    /// What has become of each family so far.
    std::vector<FamilyReport> Reports() const { return reports_->All(); }

  private:
    std::shared_ptr<VoiceReports> reports_;
    std::shared_ptr<VoiceHost> host_;
};

}  // namespace tamlo
