// Speech: the interface of a speech engine.
#pragma once

#include <memory>
#include <string_view>

namespace tamlo {

/// How `SpeechEngine::Speak` treats its text.
enum class SpeakFlags {
    wait = 0,   ///< speak after what is queued; return when it has been spoken in full
    queue = 1,  ///< queue the text and return at once
    purge = 2,  ///< with an empty text: drop all speech, silence at once, return
};

/// Values of `SpeechEngine::RunningState`.
enum class RunningState {
    done = 1,      ///< nothing is being spoken or queued
    speaking = 2,  ///< until the device has taken the last sample of the last queued text
};

/// By how much the echo of typed keys is faster than other speech, in units of rate.
inline constexpr int echo_quicker = 5;

/// One speech engine object. The game owns one at a time and replaces it to choose a voice.
/// No operation reports an error: a text that can't be spoken counts as spoken.
class SpeechEngine {
  public:
    virtual ~SpeechEngine() = default;

    /// Speaks UTF-8 text (ill-formed bytes are dropped). With `wait`, no key is delivered
    /// meanwhile, but the window keeps responding; may throw EndOfProcess.
    virtual void Speak(std::string_view text, SpeakFlags flags) = 0;
    virtual RunningState Status() const = 0;
    /// Seconds until Status may become `done`, a lower bound: how long a wait may sleep. 0 if done.
    virtual double SecondsLeft() const = 0;

    /// Rate in the service's units: 0 normal, -10 slowest, 10 fastest; used for texts spoken after
    /// the call. Any value is accepted and limited to that range.
    virtual void SetRate(int rate) = 0;
    /// The same, but `echo_quicker` above the limited rate: for the echo of typed keys.
    virtual void SetEchoRate(int rate) = 0;
    /// Volume, limited to 0 to 100; takes effect at once.
    virtual void SetVolume(int volume) = 0;

    /// Number of installed voices, 0 or more; their order never changes on one machine.
    virtual int GetVoicesCount() const = 0;
    /// Selects the installed voice `index`, from 0; an index out of range changes nothing.
    virtual void SetVoice(int index) = 0;
};

/// Makes speech engine objects.
class Speech {
  public:
    virtual ~Speech() = default;
    virtual std::unique_ptr<SpeechEngine> CreateEngine() = 0;
};

}  // namespace tamlo
