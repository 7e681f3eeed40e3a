// Puts mixer and outputs together, and takes them apart in the right order.
#include "linux/sound/sound_output.h"

namespace tamlo {
namespace {

// Longer than any pause inside an utterance or between two of a list.
constexpr int quiet_frames = stream_rate / 2;

}  // namespace

SoundOutput::SoundOutput(std::string sounds_folder)
    : changes_(std::make_shared<EventBell>()),
      mixer_(BestInstructions(), changes_),
      sound_(mixer_, WavesOfFolder(std::move(sounds_folder))),
      tap_(std::make_shared<Tap>(mixer_)),
      // The card may outlive this object, so it asks the tap.
      card_(tap_, changes_, [tap = tap_] { return tap->FramesOfQuiet() > quiet_frames; }),
      // After the card: if there is none, the clock is to pull from its first moment.
      clock_(tap_) {}

SoundOutput::~SoundOutput() {
    tap_->Close();
}

}  // namespace tamlo
