// The real game on the recording platform: its sound, its stems, its lines and its trace.
#pragma once

#include <sndfile.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/sounds/sound_meanings.h"
#include "game/form1.h"
#include "game/game_fields.h"
#include "performance.h"
#include "recording/recording.h"
#include "services/disk_files.h"
#include "store/saved_game.h"
#include "temporary_folder.h"

namespace tamlo {

/// Samples of both ears in turn, at stream_rate.
using Stereo = std::vector<float>;

inline Stereo ReadSound(const std::string& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (file == nullptr) throw std::runtime_error(path + " is no sound file");
    Stereo stereo(static_cast<std::size_t>(info.frames * info.channels));
    sf_readf_float(file, stereo.data(), info.frames);
    sf_close(file);
    return stereo;
}

struct RecordedTrip {
    Performance trace;
    std::string lines;  ///< the WebVTT
    Stereo mix, voice, effects, backgrounds;
};

/// Plays a script once in a Documents folder that holds `saved` at most. `ending`: ".flac" or
/// ".wav".
inline RecordedTrip RecordTrip(std::string_view script_text, const std::string& ending = ".wav",
                               RecordingChoices choices = {},
                               const std::optional<SavedGame>& saved = {}) {
    auto parsed = ReadScript(std::string(script_text), {WhyNotSet, WhyNotShow});
    if (const auto* error = std::get_if<ScriptError>(&parsed))
        throw std::runtime_error(error->what);
    const TemporaryFolder folder;
    if (saved) folder.Write("tolvane/tamlo.sav", EncodeSavedGame(*saved));
    DiskFiles disk;
    RecordedTrip trip;
    Rehearsal rehearsal(std::get<Script>(std::move(parsed)), {folder.Path(), SOUND_SET, SOUND_SET},
                        disk, [&](std::string_view lines) { trip.trace.trace += lines; });
    Recording recording(rehearsal, {folder / ("trip" + ending), true}, SOUND_SET, MakeVoices(),
                        choices, MeaningOfSound, {});
    Form1 game(recording.Services());
    recording.Run([&game] { game.Form_Load(); },
                  {[&game](std::string_view field, std::string_view value) {
                       SetField(game.gs, field, value);
                   },
                   [&game](std::string_view field) { return ShowField(game.gs, field); }});
    trip.trace.lines = TraceLines(trip.trace.trace);
    trip.lines = folder.Content("trip.vtt");
    trip.mix = ReadSound(folder / ("trip" + ending));
    trip.voice = ReadSound(folder / ("trip-voice" + ending));
    trip.effects = ReadSound(folder / ("trip-effects" + ending));
    trip.backgrounds = ReadSound(folder / ("trip-backgrounds" + ending));
    return trip;
}

}  // namespace tamlo
