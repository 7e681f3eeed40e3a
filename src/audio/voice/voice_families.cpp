// The voices of several engines as one list.
#include <vector>

#include "audio/voice/synthesizer.h"

namespace tamlo {
namespace {

class VoiceFamilies : public Synthesizer {
  public:
    VoiceFamilies(std::unique_ptr<Synthesizer> first, std::size_t places_kept,
                  std::unique_ptr<Synthesizer> second)
        : first_(std::move(first)), second_(std::move(second)), places_kept_(places_kept) {}

    int Open() override;
    int Rate(int voice) const override { return At(voice).engine->Rate(At(voice).number); }
    void Prepare(int voice) override { At(voice).engine->Prepare(At(voice).number); }
    void Synthesize(const Utterance& utterance, const Sink& sink) override {
        const Place& place = At(utterance.voice);
        place.engine->Synthesize({utterance.text, utterance.rate, place.number}, sink);
    }

  private:
    struct Place {
        Synthesizer* engine;
        int number;  ///< of the voice, as its engine counts
    };

    const Place& At(int voice) const { return places_.at(static_cast<std::size_t>(voice)); }

    std::unique_ptr<Synthesizer> first_;
    std::unique_ptr<Synthesizer> second_;
    std::size_t places_kept_;
    std::vector<Place> places_;
};

int VoiceFamilies::Open() {
    const int of_first = first_->Open();
    const int of_second = second_->Open();
    for (int i = 0; i < of_first; ++i) places_.push_back({first_.get(), i});
    if (of_second > 0) {
        // Without the first engine the second one's voices keep their numbers all the same.
        const Place stand_in = of_first > 0 ? places_[0] : Place{second_.get(), 0};
        places_.resize(places_kept_, stand_in);
        for (int i = 0; i < of_second; ++i) places_.push_back({second_.get(), i});
    }
    return static_cast<int>(places_.size());
}

}  // namespace

std::unique_ptr<Synthesizer> JoinFamilies(std::unique_ptr<Synthesizer> first, int places,
                                          std::unique_ptr<Synthesizer> second) {
    return std::make_unique<VoiceFamilies>(std::move(first), static_cast<std::size_t>(places),
                                           std::move(second));
}

}  // namespace tamlo
