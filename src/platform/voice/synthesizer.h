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
    /// Takes some samples, at most a few hundredths of a second; false breaks off.
    using Sink = std::function<bool(std::span<const std::int16_t>)>;

    virtual ~Synthesizer() = default;
    /// Makes ready and returns the number of voices, 0 when nothing can be spoken.
    virtual int Open() = 0;
    /// Samples a second, once open: 1 to 48,000.
    virtual int Rate() const = 0;
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

}  // namespace tamlo
