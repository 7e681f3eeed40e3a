// A platform for recordings: the virtual time and the scripted keys of a rehearsal, with the real
// voice and the real mixer, whose sound is written to files as fast as the machine can.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "reading/captions.h"
#include "recording/desk.h"
#include "rehearsal/rehearsal.h"

namespace tamlo {

struct RecordingFiles {
    std::string path;    ///< ends in .flac or .wav; the lines go to the same name in .vtt
    bool stems = false;  ///< besides: voice, effects and backgrounds, each in a file of its own
};

class Recording {
  public:
    /// Records what the rehearsal plays; the rehearsal must outlive this object. `sounds` is the
    /// folder of the wave files, `meaning` tells what they stand for. The first draws of chance
    /// come from `draws`, the others from the rehearsal. Throws std::runtime_error when a file
    /// can't be made or there is no voice.
    Recording(Rehearsal& rehearsal, const RecordingFiles& files, const std::string& sounds,
              std::unique_ptr<Synthesizer> synthesizer, RecordingChoices choices,
              const std::function<SoundMeaning(std::string_view name)>& meaning,
              std::vector<double> draws);
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// The services, for a game to be made with; it must be gone before the recording is.
    Platform Services();

    /// Runs the rehearsal as Rehearsal::Run does and completes the files. Throws
    /// std::runtime_error when one can't be written.
    RehearsalResult Run(const std::function<void()>& game, FieldAccess fields);

  private:
    struct Studio;
    std::unique_ptr<Studio> studio_;
};

}  // namespace tamlo
