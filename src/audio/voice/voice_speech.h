// The voice of the game: texts become samples in a stream that the mixer pulls.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

#include "audio/mixing/source.h"
#include "audio/voice/synthesizer.h"
#include "services/speech.h"

namespace tamlo {

struct SpeechHooks {
    /// Called every 10 ms while a text is waited for, on the game's thread: keeps the window
    /// alive without taking keys, and may throw EndOfProcess, which drops all speech.
    std::function<void()> patience{};
    /// Called with every text when the game gives it, on the game's thread.
    std::function<void(std::string_view)> spoken{};
    /// Called with a text that counts as spoken though it was not, because the synthesizer hung or
    /// there is none, so that it can be shown; on the game's thread.
    std::function<void(std::string_view)> unspoken{};
    /// Called once if there are no voices, when they are counted; returns whether somebody reads
    /// the texts. Then the count is most_voices, and texts take their time in silence. If not, or
    /// without this hook, the count is none.
    std::function<bool()> silent{};
};

/// All engine objects made by it share one synthesizer, one thread and one stream, and only one
/// of them speaks at a time. All of it is for the game's thread, but for the stream.
class VoiceSpeech : public Speech {
  public:
    /// A synthesizer that gives no sign of life for `longest_silence` while it has a text is left
    /// behind with its thread, and another one made for the texts that wait; three times. One that
    /// is not open after `longest_opening` is not waited for any longer when the voices are
    /// counted: as many as there can be are presumed, and it speaks once it is open.
    explicit VoiceSpeech(SpeechHooks hooks = {}, SynthesizerMaker make = MakeVoices,
                         std::chrono::milliseconds longest_silence = std::chrono::seconds(2),
                         std::chrono::milliseconds longest_opening = std::chrono::seconds(3));
    ~VoiceSpeech() override;

    std::unique_ptr<SpeechEngine> CreateEngine() override;

    /// What is to be heard, for the mixer. It must be pulled, even if nobody hears it, or no text
    /// ever ends; and no longer than this object lives.
    Source& Stream();
    /// Whether samples of texts given so far are still to be made: who pulls quicker than real
    /// time waits for them meanwhile.
    bool SamplesComing() const;

  private:
    struct Shared;
    class Engine;
    class PresentStream;
    std::unique_ptr<Shared> shared_;
};

}  // namespace tamlo
