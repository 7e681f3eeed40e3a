#include "linux/voice/voice_family.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "linux/voice/speaker_messages.h"

namespace tamlo {
namespace {

using Kind = SpeakerMessage::Kind;

constexpr int most_failures = 3;
/// -50 dB of full scale.
constexpr int audible = 104;
/// Seconds of silence after which a text counts as one that is not spoken.
constexpr int longest_silence = 3;
/// The longest that a text may take: so many seconds, and so many times what it usually takes.
constexpr double shortest_limit = 5;
constexpr double most_times_as_long = 6;
constexpr double characters_a_second = 15;

double LongestSeconds(const Utterance& utterance) {
    const double usual = static_cast<double>(utterance.text.size()) / characters_a_second /
                         std::pow(3.0, utterance.rate / 10.0);
    return shortest_limit + most_times_as_long * usual;
}

int Milliseconds(std::chrono::milliseconds time) {
    return static_cast<int>(std::max<std::int64_t>(time.count(), 0));
}

/// Whether a text must be heard: others may be nothing but pauses.
bool MustSound(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    });
}

/// Follows what comes of one text.
class TextWatch {
  public:
    TextWatch(const Utterance& utterance, int rate)
        : silent_(MustSound(utterance.text)),
          longest_(static_cast<std::size_t>(rate * LongestSeconds(utterance))),
          longest_silent_(static_cast<std::size_t>(rate * longest_silence)) {}

    void Take(std::span<const std::int16_t> samples) {
        count_ += samples.size();
        if (!silent_) return;
        silent_ = std::none_of(samples.begin(), samples.end(),
                               [](int sample) { return std::abs(sample) > audible; });
    }
    /// Whether it must have been heard and was not.
    bool Silent() const { return silent_; }
    bool SilentForLong() const { return silent_ && count_ > longest_silent_; }
    bool Endless() const { return count_ > longest_; }

  private:
    bool silent_;
    std::size_t count_ = 0;
    const std::size_t longest_;
    const std::size_t longest_silent_;
};

}  // namespace

VoiceFamily::VoiceFamily(std::shared_ptr<VoiceHost> host, std::shared_ptr<VoiceReports> reports,
                         int family, const VoicePatience& patience)
    : host_(std::move(host)), reports_(std::move(reports)), family_(family), patience_(patience) {}

VoiceFamily::~VoiceFamily() {
    if (speaker_.socket) host_->Kill(speaker_.number);
}

void VoiceFamily::BeginOpening() {
    speaker_ = host_->Start(family_);
    started_ = SteadyClock::now();
    const bool begun = static_cast<bool>(speaker_.socket);
    state_ = begun ? State::opening : State::left_out;
    reports_->Set(family_, begun ? FamilyReport::State::opening : FamilyReport::State::crashed,
                  !begun);
}

VoiceFamily::State VoiceFamily::AwaitOpening(std::chrono::milliseconds time) {
    if (state_ != State::opening) return state_;
    if (CanReceive(speaker_.socket.Number(), Milliseconds(time))) {
        SpeakerMessage message;
        if (ReceiveMessage(speaker_.socket.Number(), message, content_)) {
            TakeOpened(message, content_);
        } else {
            // What has never opened will not the next time either.
            if (!was_ready_) failures_ = most_failures;
            Fail(FamilyReport::State::crashed);
        }
    } else if (SteadyClock::now() - started_ > patience_.opening_at_all) {
        failures_ = most_failures;
        Fail(FamilyReport::State::hung);
    }
    return state_;
}

VoiceFamily::State VoiceFamily::AwaitReopening() {
    return AwaitOpening(was_ready_ ? patience_.reopening : std::chrono::milliseconds(0));
}

void VoiceFamily::TakeOpened(const SpeakerMessage& message, const std::vector<char>& content) {
    if (message.kind != Kind::opened) return;
    std::vector<std::int32_t> rates(content.size() / sizeof(std::int32_t));
    std::memcpy(rates.data(), content.data(), rates.size() * sizeof rates[0]);
    const bool fit = std::all_of(rates.begin(), rates.end(),
                                 [](int rate) { return rate >= 1 && rate <= 48'000; });
    state_ = rates.empty() || !fit ? State::missing : State::ready;
    reports_->Set(
        family_, state_ == State::ready ? FamilyReport::State::works : FamilyReport::State::missing,
        state_ == State::missing);
    if (state_ == State::missing) return;
    if (!was_ready_) rates_.assign(rates.begin(), rates.end());
    was_ready_ = true;
    has_spoken_.assign(rates_.size(), false);
}

VoiceFamily::Outcome VoiceFamily::Fail(FamilyReport::State how) {
    host_->Kill(speaker_.number);
    speaker_.socket.Close();
    owing_since_.reset();
    const bool left_out = ++failures_ >= most_failures;
    reports_->Set(family_, how, left_out);
    if (left_out) {
        state_ = State::left_out;
    } else {
        BeginOpening();
    }
    return how == FamilyReport::State::crashed ? Outcome::crashed : Outcome::failed;
}

/// A text that hangs may be broken off while it does. Its family goes on owing a sign, so that
/// texts in quick succession are no reason to wait for it for ever.
VoiceFamily::Waited VoiceFamily::AwaitMessage(std::chrono::milliseconds patience,
                                              const Synthesizer::Sink& sink) {
    constexpr std::chrono::milliseconds slice{20};
    const auto end = *owing_since_ + patience;
    while (!CanReceive(speaker_.socket.Number(), Milliseconds(slice))) {
        if (SteadyClock::now() >= end) return Waited::in_vain;
        if (!sink({})) return Waited::not_wanted;
    }
    return Waited::message;
}

bool VoiceFamily::Send(const SpeakerMessage& message, const std::string& text) {
    return SendMessage(speaker_.socket.Number(), message, text.data(),
                       std::min(text.size(), longest_message));
}

void VoiceFamily::Prepare(int voice) {
    if (Now() != State::ready) return;
    Send({Kind::prepare, 0, 0, voice}, "");  // one that has gone is noticed by the next text
}

VoiceFamily::Outcome VoiceFamily::Speak(const Utterance& utterance, const Synthesizer::Sink& sink) {
    if (AwaitReopening() != State::ready) return Outcome::failed;
    const auto voice = static_cast<std::size_t>(utterance.voice);
    if (voice >= rates_.size()) return Outcome::failed;
    // One that has just failed gets no more time than usual.
    const bool first = !has_spoken_[voice] && failures_ == 0;
    has_spoken_[voice] = true;
    ++text_;
    Send({Kind::speak, text_, utterance.rate, utterance.voice}, utterance.text);
    TextWatch watch(utterance, Rate(utterance.voice));
    if (!owing_since_) owing_since_ = SteadyClock::now();
    for (SpeakerMessage message;;) {
        switch (AwaitMessage(first ? patience_.first_text : patience_.sample, sink)) {
            case Waited::message: break;
            case Waited::in_vain: return Fail(FamilyReport::State::hung);
            case Waited::not_wanted:
                Send({Kind::stop, text_, 0, 0}, "");
                return Outcome::broken_off;
        }
        if (!ReceiveMessage(speaker_.socket.Number(), message, content_)) {
            return Fail(FamilyReport::State::crashed);
        }
        owing_since_ = SteadyClock::now();
        if (message.number != text_) continue;  // of a text that was broken off
        if (message.kind == Kind::done) break;
        std::vector<std::int16_t> samples(content_.size() / sizeof(std::int16_t));
        std::memcpy(samples.data(), content_.data(), samples.size() * sizeof samples[0]);
        watch.Take(samples);
        if (watch.SilentForLong()) return Fail(FamilyReport::State::silent);
        if (watch.Endless()) return Fail(FamilyReport::State::hung);
        if (!sink(samples)) {
            owing_since_.reset();
            Send({Kind::stop, text_, 0, 0}, "");
            return Outcome::broken_off;
        }
    }
    owing_since_.reset();
    if (watch.Silent()) return Fail(FamilyReport::State::silent);
    failures_ = 0;
    return Outcome::spoken;
}

}  // namespace tamlo
