// The start-up check of the wave files: are they the ones that the game was made with?
#include "sound/wave_check.h"

#include <utility>

#include "game/form1.h"
#include "services/files.h"
#include "sound/effects.h"
#include "sound/text_fields.h"

namespace tamlo {

// Looks in the current directory, not in the program's folder: the start script makes them the
// same.
bool IsUnaltered(Files& files, const std::string& folder, const Effect& effect) {
    const std::string path = folder + "/" + std::string(effect.name) + ".wav";
    const auto length = files.Length(path);
    if (!length || std::cmp_not_equal(*length, effect.text.size)) return false;
    const ReadResult content = files.Read(path);
    if (content.outcome != ReadResult::Outcome::ok) return false;
    const TextFields fields = CountTextFields(content.bytes);
    return std::cmp_equal(fields.count, effect.text.fields) &&
           std::cmp_equal(fields.last_length, effect.text.last);
}

void Form1::checkwave() {
    const std::string folder = platform.files.CurrentDirectory();
    for (const Effect* effect : CheckedEffects()) {
        if (!IsUnaltered(platform.files, folder, *effect)) {
            gs.wcv = 1;
            return;
        }
    }
}

}  // namespace tamlo
