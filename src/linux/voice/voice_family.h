// One family of voices in a process of its own, seen from the thread that speaks.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

#include "linux/voice/voice_host.h"
#include "linux/voice/voice_reports.h"

namespace tamlo {

struct SpeakerMessage;

/// How long a family may take; tests take less.
struct VoicePatience {
    std::chrono::milliseconds opening{2000};  ///< that the start waits for
    std::chrono::milliseconds opening_at_all{15'000};
    std::chrono::milliseconds reopening{500};
    std::chrono::milliseconds sample{1000};      ///< until the next samples of a text
    std::chrono::milliseconds first_text{2000};  ///< the same for the first text of a voice
};

/// All calls belong to one thread. A call takes no longer than its patience, whatever the family
/// does; one that fails is started again, until it has failed three times in a row.
class VoiceFamily {
  public:
    VoiceFamily(std::shared_ptr<VoiceHost> host, std::shared_ptr<VoiceReports> reports, int family,
                const VoicePatience& patience);
    VoiceFamily(const VoiceFamily&) = delete;
    VoiceFamily& operator=(const VoiceFamily&) = delete;
    ~VoiceFamily();

    enum class State {
        closed,
        opening,
        ready,
        missing,   ///< it has no voices
        left_out,  ///< it has failed too often
    };

    /// Starts it; returns at once.
    void BeginOpening();
    /// Waits for it that long at most.
    State AwaitOpening(std::chrono::milliseconds time);
    State Now() { return AwaitOpening(std::chrono::milliseconds(0)); }
    bool HasBeenReady() const { return was_ready_; }
    /// Waits a moment for one that has been ready before and was started again.
    State AwaitReopening();

    /// Number of voices and samples a second of one, once ready; they stay the same afterwards.
    int Voices() const { return static_cast<int>(rates_.size()); }
    int Rate(int voice) const { return rates_.at(static_cast<std::size_t>(voice)); }

    void Prepare(int voice);
    enum class Outcome {
        spoken,
        broken_off,  ///< by the sink
        crashed,     ///< a second trial may go well
        failed,
    };
    Outcome Speak(const Utterance& utterance, const Synthesizer::Sink& sink);

  private:
    using SteadyClock = std::chrono::steady_clock;

    Outcome Fail(FamilyReport::State how);
    enum class Waited { message, in_vain, not_wanted };
    Waited AwaitMessage(std::chrono::milliseconds patience, const Synthesizer::Sink& sink);
    void TakeOpened(const SpeakerMessage& message, const std::vector<char>& content);
    bool Send(const SpeakerMessage& message, const std::string& text);

    const std::shared_ptr<VoiceHost> host_;
    const std::shared_ptr<VoiceReports> reports_;
    const int family_;
    const VoicePatience patience_;
    VoiceHost::Speaker speaker_;
    State state_ = State::closed;
    bool was_ready_ = false;
    SteadyClock::time_point started_;
    std::vector<int> rates_;
    std::vector<bool> has_spoken_;  ///< by voice, since the last start
    int failures_ = 0;              ///< in a row
    /// Since when it has owed a sign of life; nothing if it owes none.
    std::optional<SteadyClock::time_point> owing_since_;
    int text_ = 0;  ///< number of the last text
    std::vector<char> content_;
};

}  // namespace tamlo
