// A speech engine as the voice's thread uses it: text in, samples out, all calls from one thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace tamlo {

struct Utterance {
    std::string text;  ///< well-formed UTF-8, not only blanks
    int rate = 0;      ///< -10 to 15, 0 normal; a step of 10 is three times as quick
    int voice = 0;     ///< from 0, below the number of voices
};

class Synthesizer {
  public:
    /// Takes samples, from none to a few hundredths of a second; false breaks off.
    using Sink = std::function<bool(std::span<const std::int16_t>)>;

    virtual ~Synthesizer() = default;
    /// Makes ready and returns the number of voices, 0 when nothing can be spoken.
    virtual int Open() = 0;
    /// Samples a second of a voice, once open: 1 to 48,000.
    virtual int Rate(int voice) const = 0;
    /// Does now what the first text of a voice would have to wait for.
    virtual void Prepare(int /*voice*/) {}
    /// Hands the samples over as they are made; returns when all are or the sink broke off.
    /// A text that cannot be spoken gives no samples.
    virtual void Synthesize(const Utterance& utterance, const Sink& sink) = 0;
};

/// Makes one, as often as one is needed.
using SynthesizerMaker = std::function<std::unique_ptr<Synthesizer>()>;

/// libespeak-ng. Several at a time don't know of each other.
std::unique_ptr<Synthesizer> MakeEspeak();
/// Silence for as long as the text would take to be spoken. One voice.
std::unique_ptr<Synthesizer> MakeSilence();

/// libflite's English voices, none if the system does not have the library or somebody hangs in it.
/// Several at a time take turns. `library`: its file name.
std::unique_ptr<Synthesizer> MakeFlite(const char* library = "libflite.so.1");

/// The voices of two engines as one list. Those of the second come after `places` of the first;
/// where the first has none, its first voice speaks, or the second's if it has none at all.
std::unique_ptr<Synthesizer> JoinFamilies(std::unique_ptr<Synthesizer> first, int places,
                                          std::unique_ptr<Synthesizer> second);

/// All voices that the edition has, each with its number: see voices.h.
std::unique_ptr<Synthesizer> MakeVoices();

}  // namespace tamlo
