// A voice for a machine that has none: texts take the time that it takes to read them.
#include <algorithm>
#include <array>
#include <cmath>

#include "audio/voice/synthesizer.h"

namespace tamlo {
namespace {

constexpr int sample_rate = 8000;
// As the first voice does at its normal rate.
constexpr double characters_a_second = 15;
constexpr std::array<std::int16_t, sample_rate / 50> piece{};

class Silence : public Synthesizer {
  public:
    int Open() override { return 1; }
    int Rate(int) const override { return sample_rate; }
    void Synthesize(const Utterance& utterance, const Sink& sink) override {
        const double seconds = static_cast<double>(utterance.text.size()) / characters_a_second /
                               std::pow(3.0, utterance.rate / 10.0);
        auto left = static_cast<std::size_t>(seconds * sample_rate);
        while (left > 0) {
            const std::size_t count = std::min(left, piece.size());
            if (!sink(std::span(piece).first(count))) return;
            left -= count;
        }
    }
};

}  // namespace

std::unique_ptr<Synthesizer> MakeSilence() {
    return std::make_unique<Silence>();
}

}  // namespace tamlo
