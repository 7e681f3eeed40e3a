#include "linux/voice/guarded_voices.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace tamlo {
namespace {

using State = VoiceFamily::State;
using Sink = Synthesizer::Sink;
using Samples = std::vector<std::int16_t>;

/// Of what is heard while no family can speak.
constexpr int usual_rate = 22050;

constexpr std::string_view notice =
    "The usual voice does not work, so another one speaks. The program tamlo doctor tells more. ";

/// Changes the rate of samples. Good enough for a voice in need.
class Adapter {
  public:
    Adapter(int from, int to, const Sink& sink)
        : step_(static_cast<double>(from) / to), sink_(sink) {}

    bool operator()(std::span<const std::int16_t> samples) {
        if (step_ == 1) return sink_(samples);
        made_.clear();
        for (const std::int16_t sample : samples) {
            for (; at_ < 1; at_ += step_) {
                made_.push_back(static_cast<std::int16_t>(last_ + at_ * (sample - last_)));
            }
            at_ -= 1;
            last_ = sample;
        }
        return sink_(made_);
    }

  private:
    const double step_;
    const Sink& sink_;
    double at_ = 0;  ///< of the next sample, between the last one and the one that comes
    std::int16_t last_ = 0;
    Samples made_;
};

/// In pieces of a fiftieth of a second; false if the sink broke off.
bool GiveInPieces(const Samples& samples, int rate, const Sink& sink) {
    const auto piece = static_cast<std::size_t>(rate / 50);
    std::span<const std::int16_t> rest = samples;
    while (!rest.empty()) {
        const auto next = rest.first(std::min(piece, rest.size()));
        if (!sink(next)) return false;
        rest = rest.subspan(next.size());
    }
    return true;
}

/// Two short tones.
Samples Tones(int rate) {
    constexpr double length = 0.12;
    constexpr double period = 0.2;
    constexpr double pitch = 660;
    constexpr double level = 6000;
    Samples samples(static_cast<std::size_t>(2 * period * rate));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double within = std::fmod(static_cast<double>(i) / rate, period);
        const double swell = within < length ? std::sin(std::numbers::pi * within / length) : 0;
        samples[i] = static_cast<std::int16_t>(level * swell *
                                               std::sin(2 * std::numbers::pi * pitch * within));
    }
    return samples;
}

/// Silence for as long as a text would take to be spoken.
Samples ReadingTime(const Utterance& utterance, int rate) {
    constexpr double characters_a_second = 15;
    const double seconds = static_cast<double>(utterance.text.size()) / characters_a_second /
                           std::pow(3.0, utterance.rate / 10.0);
    return Samples(static_cast<std::size_t>(seconds * rate));
}

/// Whether a text is still wanted: until its sink breaks off.
class Wanted {
  public:
    explicit Wanted(const Sink& taker)
        : sink([this, &taker](std::span<const std::int16_t> samples) {
              wanted_ = wanted_ && taker(samples);
              return wanted_;
          }) {}
    Wanted(const Wanted&) = delete;
    Wanted& operator=(const Wanted&) = delete;
    explicit operator bool() const { return wanted_; }

    const Sink sink;

  private:
    mutable bool wanted_ = true;
};

class GuardedVoices : public Synthesizer {
  public:
    GuardedVoices(const std::shared_ptr<VoiceHost>& host,
                  const std::shared_ptr<VoiceReports>& reports, FamilySizes sizes,
                  GuardedVoiceHooks hooks, const VoicePatience& patience)
        : sizes_(std::move(sizes)), hooks_(std::move(hooks)), patience_(patience) {
        for (std::size_t i = 0; i < sizes_.size(); ++i) {
            families_.push_back(
                std::make_unique<VoiceFamily>(host, reports, static_cast<int>(i), patience));
        }
    }

    int Open() override;
    int Rate(int voice) const override;
    void Prepare(int voice) override;
    void Synthesize(const Utterance& utterance, const Sink& sink) override;

  private:
    /// A family, and the number that a voice has in it.
    struct Place {
        VoiceFamily* family;
        int number;
    };

    std::vector<Place> PlacesFor(int voice) const;
    bool Say(const Place& place, const Utterance& utterance, const Sink& sink);
    void Explain(const Place& place, int rate, const Sink& sink);
    VoiceFamily* AwaitAny(const Sink& sink);
    void Replace(const Utterance& utterance, const Wanted& wanted);

    const FamilySizes sizes_;
    const GuardedVoiceHooks hooks_;
    const VoicePatience patience_;
    std::vector<std::unique_ptr<VoiceFamily>> families_;
    mutable int rate_ = usual_rate;  ///< that Rate told last
    bool explained_ = false;
};

int GuardedVoices::Open() {
    for (const auto& family : families_) family->BeginOpening();
    const auto end = std::chrono::steady_clock::now() + patience_.opening;
    bool any = false;
    std::size_t count = 0;
    std::size_t before = 0;
    for (std::size_t i = 0; i < families_.size(); ++i) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        const State state = families_[i]->AwaitOpening(left);
        any = any || state == State::ready || state == State::opening;
        // Its voices keep their numbers, whether or not it can speak them.
        const int voices = state == State::ready     ? families_[i]->Voices()
                           : state == State::missing ? 0
                                                     : sizes_[i];
        if (voices > 0) count = before + static_cast<std::size_t>(voices);
        before += static_cast<std::size_t>(sizes_[i]);
    }
    return any ? static_cast<int>(count) : 0;
}

/// Who speaks a voice: its own family, then the first voice of the others in their order.
std::vector<GuardedVoices::Place> GuardedVoices::PlacesFor(int voice) const {
    std::vector<Place> places;
    int first = 0;
    for (std::size_t i = 0; i < families_.size(); ++i) {
        const int number = voice - first;
        const bool own = number >= 0 && number < sizes_[i];
        const int known = families_[i]->Voices();
        const Place place = {families_[i].get(), own && number < known ? number : 0};
        if (own) {
            places.insert(places.begin(), place);
        } else {
            places.push_back(place);
        }
        first += sizes_[i];
    }
    return places;
}

/// That of who will speak, as far as it is known before: others are adapted to it.
int GuardedVoices::Rate(int voice) const {
    rate_ = usual_rate;
    for (const Place& place : PlacesFor(voice)) {
        if (place.family->Now() != State::ready) continue;
        rate_ = place.family->Rate(place.number);
        break;
    }
    return rate_;
}

void GuardedVoices::Prepare(int voice) {
    const Place own = PlacesFor(voice).front();
    own.family->Prepare(own.number);
}

/// False if it was not spoken.
bool GuardedVoices::Say(const Place& place, const Utterance& utterance, const Sink& sink) {
    using Outcome = VoiceFamily::Outcome;
    Outcome outcome = Outcome::crashed;
    for (int trials = 0; trials < 2 && outcome == Outcome::crashed; ++trials) {
        if (place.family->AwaitReopening() != State::ready) return false;
        Adapter adapter(place.family->Rate(place.number), rate_, sink);
        outcome = place.family->Speak({utterance.text, utterance.rate, place.number},
                                      [&](auto samples) { return adapter(samples); });
    }
    return outcome == Outcome::spoken || outcome == Outcome::broken_off;
}

/// Says once that another voice has taken over.
void GuardedVoices::Explain(const Place& place, int rate, const Sink& sink) {
    explained_ = true;
    if (hooks_.explain) hooks_.explain(notice);
    Say(place, {std::string(notice), rate, 0}, sink);
}

/// Waits for a family that opens for the first time, for as long as the text is wanted; null if
/// none comes.
VoiceFamily* GuardedVoices::AwaitAny(const Sink& sink) {
    constexpr std::array<std::int16_t, 1> nothing = {};
    bool opening = true;
    while (opening && sink(nothing)) {
        opening = false;
        for (const auto& family : families_) {
            if (family->HasBeenReady()) continue;
            const State state = family->AwaitOpening(std::chrono::milliseconds(10));
            if (state == State::ready) return family.get();
            opening = opening || state == State::opening;
        }
    }
    return nullptr;
}

void GuardedVoices::Synthesize(const Utterance& utterance, const Sink& sink) {
    const Wanted wanted(sink);
    const std::vector<Place> places = PlacesFor(utterance.voice);
    for (const Place& place : places) {
        const bool stands_in =
            places.front().family->Now() == State::left_out && place.family->Now() == State::ready;
        if (stands_in && !explained_) Explain(place, utterance.rate, wanted.sink);
        if (!wanted || Say(place, utterance, wanted.sink)) return;
    }
    if (wanted) Replace(utterance, wanted);
}

/// What is heard of a text that no family speaks now.
void GuardedVoices::Replace(const Utterance& utterance, const Wanted& wanted) {
    if (hooks_.unspoken) hooks_.unspoken(utterance.text);
    if (!GiveInPieces(Tones(rate_), rate_, wanted.sink)) return;
    VoiceFamily* const late = AwaitAny(wanted.sink);
    for (const Place& place : PlacesFor(utterance.voice)) {
        if (!wanted || (place.family == late && Say(place, utterance, wanted.sink))) return;
    }
    GiveInPieces(ReadingTime(utterance, rate_), rate_, wanted.sink);
}

}  // namespace

std::unique_ptr<Synthesizer> MakeGuardedVoices(const std::shared_ptr<VoiceHost>& host,
                                               const std::shared_ptr<VoiceReports>& reports,
                                               FamilySizes sizes, GuardedVoiceHooks hooks,
                                               VoicePatience patience) {
    return std::make_unique<GuardedVoices>(host, reports, std::move(sizes), std::move(hooks),
                                           patience);
}

}  // namespace tamlo
