// libflite as a Synthesizer: its voices, and the pace at which they speak.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <mutex>
#include <string>
#include <vector>

#include "audio/voice/flite_library.h"
#include "audio/voice/flite_vocoder.h"
#include "audio/voice/sentences.h"
#include "audio/voice/synthesizer.h"
#include "audio/voice/voices.h"

namespace tamlo {
namespace {

constexpr int samples_a_second = 16000;
/// The library serves one at a time. A thread that hangs in it is not waited for any longer.
constexpr auto longest_turn = std::chrono::milliseconds(500);

/// How long the first voice takes for a text at some rates, as a multiple of what it takes at 0.
/// Its engine goes neither by its own rule nor below 80 words a minute.
struct Length {
    int rate;
    double length;
};
constexpr std::array lengths{Length{-10, 2.03}, Length{-7, 2.03}, Length{-5, 1.70},
                             Length{0, 1.0},    Length{5, 0.619}, Length{7, 0.515},
                             Length{10, 0.348}, Length{15, 0.200}};

double LengthAt(int rate) {
    const auto* above = std::find_if(lengths.begin() + 1, lengths.end() - 1,
                                     [rate](const Length& one) { return one.rate >= rate; });
    const Length& below = above[-1];
    const double way = static_cast<double>(rate - below.rate) / (above->rate - below.rate);
    return below.length * std::pow(above->length / below.length, way);
}

/// The library and its voices. A voice is loaded when it is first asked for, and stays for the rest
/// of the process: the library keeps its voices in static variables.
class FliteVoices {
  public:
    explicit FliteVoices(const FliteLibrary& library);

    const FliteLibrary& Library() const { return library_; }
    /// Up to the last voice that is installed; 0 if none is.
    int Places() const { return static_cast<int>(places_.size()); }
    /// The voice of a place, or the first one if it is not installed; null if it can't be loaded.
    FliteModel* Load(int place);

    /// Held by the voice that speaks.
    std::timed_mutex in_use;

  private:
    struct Place {
        const FliteVoice* voice;
        std::unique_ptr<FliteModel> model;  ///< once it has been asked for
    };

    const FliteLibrary library_;
    std::vector<Place> places_;
};

FliteVoices::FliteVoices(const FliteLibrary& library) : library_(library) {
    library_.flite_init();
    const FliteVoice* first = nullptr;
    std::size_t needed = 0;
    for (const FliteVoice& voice : flite_voices) {
        const bool there = library_.HasVoice(voice.name);
        if (there && first == nullptr) first = &voice;
        places_.push_back({there ? &voice : nullptr, nullptr});
        if (there) needed = places_.size();
    }
    places_.resize(needed);
    for (Place& place : places_) {
        if (place.voice == nullptr) place.voice = first;
    }
}

FliteModel* FliteVoices::Load(int place) {
    auto& [voice, model] = places_.at(static_cast<std::size_t>(place));
    if (model) return model.get();
    cst_voice* const made = library_.LoadVoice(voice->name);
    if (made == nullptr) return nullptr;
    model = std::make_unique<FliteModel>(library_, *made, *voice);
    return model.get();
}

class Flite : public Synthesizer {
  public:
    explicit Flite(const char* library) : name_(library) {}
    int Open() override;
    int Rate(int) const override { return samples_a_second; }
    void Prepare(int voice) override;
    void Synthesize(const Utterance& utterance, const Sink& sink) override;

  private:
    std::string name_;
    FliteVoices* voices_ = nullptr;
};

int Flite::Open() {
    const FliteLibrary library(name_.c_str());
    if (!library) return 0;
    // Never taken down: a thread that hangs in the library may outlive everything.
    static FliteVoices* const all = new FliteVoices(library);
    // Without voices while another thread hangs in the library: the first engine's do better.
    const std::unique_lock turn(all->in_use, longest_turn);
    if (!turn) return 0;
    voices_ = all;
    return voices_->Places();
}

void Flite::Prepare(int voice) {
    // The first sentence brings the voice's data into memory.
    Synthesize({"ready", 0, voice}, [](auto) { return true; });
}

bool GiveSilence(double seconds, const Synthesizer::Sink& sink) {
    constexpr std::array<std::int16_t, samples_a_second / 50> silence{};
    auto left = static_cast<std::size_t>(seconds * samples_a_second);
    while (left > 0) {
        const std::size_t count = std::min(left, silence.size());
        if (!sink(std::span(silence).first(count))) return false;
        left -= count;
    }
    return true;
}

void Flite::Synthesize(const Utterance& utterance, const Sink& sink) {
    const std::unique_lock turn(voices_->in_use, longest_turn);
    FliteModel* const model = turn ? voices_->Load(utterance.voice) : nullptr;
    if (model == nullptr) return;
    const double length = LengthAt(utterance.rate);
    for (const Sentence& part : SentencesOf(utterance.text)) {
        FliteSentence sentence(voices_->Library(), *model, part.text);
        const double pace = model->length / length;
        if (!SayWithFlite(voices_->Library(), *model, sentence, pace, sink)) return;
        if (!GiveSilence(part.pause_behind * length, sink)) return;
    }
}

}  // namespace

std::unique_ptr<Synthesizer> MakeFlite(const char* library) {
    return std::make_unique<Flite>(library);
}

}  // namespace tamlo
