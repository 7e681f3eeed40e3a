#include "linux/voice/installed_voices.h"

#include <utility>

#include "audio/voice/voices.h"

namespace tamlo {
namespace {

const std::vector<std::string> libraries = {"espeak-ng", "flite"};

}  // namespace

InstalledVoices::InstalledVoices()
    : reports_(std::make_shared<VoiceReports>(libraries)),
      host_(std::make_shared<VoiceHost>(
          std::vector<SynthesizerMaker>{MakeEspeak, [] { return MakeFlite(); }})) {}

SynthesizerMaker InstalledVoices::Maker(GuardedVoiceHooks hooks) const {
    if (!host_->Running()) return MakeVoices;
    return [host = host_, reports = reports_, hooks = std::move(hooks)] {
        return MakeGuardedVoices(host, reports, {voice_table.size(), flite_voices.size()}, hooks);
    };
}

}  // namespace tamlo
