#include "audio/voice/flite_vocoder.h"

#include <algorithm>
#include <cmath>

namespace tamlo {
namespace {

/// The longest sentence, slowly: the library makes room for it, but touches only what it needs.
constexpr int most_frames = 60 * 200;
/// Samples between two calls: less than a frame has, so that there is one after every frame.
constexpr int call_after = 1;

/// Walks through the frames of a sentence at a pace. The library is handed the same frame again and
/// again, and this fills it with the next one each time it has been turned into samples: so nothing
/// is made before it is wanted.
class Walker {
  public:
    Walker(FliteSentence& sentence, double pace, const Synthesizer::Sink& sink)
        : sentence_(sentence), pace_(pace), sink_(sink) {}

    /// Makes the next frame; false after the last.
    bool Step();
    float* Frame() { return frame_.data(); }

    /// Hands samples over, and makes the next frame.
    static int TakeSamples(const cst_wave* wave, int start, int size, int last,
                           cst_audio_streaming_info* info) noexcept;
    bool BrokenOff() const { return broken_off_; }

  private:
    bool Have(std::size_t frame);
    void Mix(std::size_t first, std::size_t end, double towards_second);

    FliteSentence& sentence_;
    const double pace_;
    const Synthesizer::Sink& sink_;
    std::vector<float> frames_;  ///< of the sentence, so far
    std::vector<float> frame_;
    double position_ = 0;
    bool broken_off_ = false;
};

bool Walker::Step() {
    const auto first = static_cast<std::size_t>(position_);
    if (!Have(first)) return false;
    if (pace_ > 1) {
        // All that is passed over counts, or the short sounds would be lost.
        auto end = static_cast<std::size_t>(std::ceil(position_ + pace_));
        while (!Have(end - 1)) --end;
        Mix(first, end, -1);
    } else {
        Mix(first, Have(first + 1) ? first + 2 : first + 1, position_ - static_cast<double>(first));
    }
    position_ += pace_;
    return true;
}

bool Walker::Have(std::size_t frame) {
    while (frames_.empty() || frame >= frames_.size() / sentence_.FrameShape().Width()) {
        if (!sentence_.Next(frames_)) return false;
    }
    return true;
}

/// The mean of some frames, or a mixture of two. The pitch is that of those which have one.
void Walker::Mix(std::size_t first, std::size_t end, double towards_second) {
    const std::size_t width = sentence_.FrameShape().Width();
    frame_.assign(width, 0);
    float voiced = 0;
    for (std::size_t i = first; i < end; ++i) {
        const float* from = frames_.data() + i * width;
        const double share = towards_second < 0 ? 1.0 / static_cast<double>(end - first)
                             : i == first       ? 1 - towards_second
                                                : towards_second;
        const auto weight = static_cast<float>(end - first == 1 ? 1.0 : share);
        if (from[0] > 0) voiced += weight;
        for (std::size_t k = 0; k < width; ++k) frame_[k] += weight * from[k];
    }
    frame_[0] = voiced >= 0.5F ? frame_[0] / voiced : 0;
}

int Walker::TakeSamples(const cst_wave* wave, int start, int size, int,
                        cst_audio_streaming_info* info) noexcept {
    auto& walker = *static_cast<Walker*>(info->userdata);
    walker.broken_off_ =
        !walker.sink_({wave->samples + start, static_cast<std::size_t>(std::max(size, 0))});
    if (walker.broken_off_ || !walker.Step()) return CST_AUDIO_STREAM_STOP;
    return CST_AUDIO_STREAM_CONT;
}

}  // namespace

bool SayWithFlite(const FliteLibrary& library, FliteModel& model, FliteSentence& sentence,
                  double pace, const Synthesizer::Sink& sink) {
    Walker walker(sentence, pace, sink);
    if (!walker.Step()) return true;
    const FliteSentence::Shape shape = sentence.FrameShape();
    std::vector<float*> spectra(most_frames, walker.Frame());
    std::vector<float*> bands(most_frames, walker.Frame() + shape.channels);
    std::vector<float> times(most_frames);
    for (std::size_t i = 0; i < times.size(); ++i) {
        times[i] = static_cast<float>(i) * model.sounds.frame_advance;
    }
    const cst_track spectrum{nullptr, most_frames, shape.channels, times.data(), spectra.data()};
    const cst_track strengths{nullptr, most_frames, shape.bands, times.data(), bands.data()};
    cst_audio_streaming_info info{call_after, Walker::TakeSamples, nullptr, nullptr, &walker};
    constexpr int left_out = 0;  // of the spectrum, which would be quicker and duller
    cst_wave* wave =
        library.mlsa_resynthesis(&spectrum, &strengths, &model.sounds, &info, left_out);
    if (wave != nullptr) library.delete_wave(wave);
    return !walker.BrokenOff();
}

}  // namespace tamlo
