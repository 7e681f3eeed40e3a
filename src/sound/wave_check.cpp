// The start-up check of the wave files: are they the ones the game was made with?
#include "game/form1.h"
#include "services/files.h"
#include "sound/text_fields.h"
#include "sound/wave_fingerprints.h"

namespace tamlo {
namespace {

// Looked up in the current directory, not in the program's folder: the start script sees to it
// that they are the same.
bool Matches(Files& files, const std::string& folder, const WaveFingerprint& wave) {
    const std::string path = folder + "/" + std::string(wave.name) + ".wav";
    const auto length = files.Length(path);
    if (!length || *length != wave.size) return false;
    const ReadResult content = files.Read(path);
    if (content.outcome != ReadResult::Outcome::ok) return false;
    const TextFields fields = CountTextFields(content.bytes);
    return fields.count == wave.fields && fields.last_length == wave.last;
}

}  // namespace

void Form1::checkwave() {
    const std::string folder = platform.files.CurrentDirectory();
    for (const WaveFingerprint& wave : wave_fingerprints) {
        if (!Matches(platform.files, folder, wave)) {
            gs.wcv = 1;
            return;
        }
    }
}

}  // namespace tamlo
