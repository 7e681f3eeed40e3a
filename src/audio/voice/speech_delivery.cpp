#include "audio/voice/speech_delivery.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "audio/mixing/source.h"

namespace tamlo {
namespace {

/// -50 dB of full scale: what is softer at the start of a text only delays it.
constexpr float audible = 0.00316F;
/// Between texts queued one after the other, which would run together; none after the last.
constexpr std::array<float, stream_rate * 130 / 1000> pause{};

}  // namespace

SpeechDelivery::SpeechDelivery(int rate, Onset onset, Stream stream)
    : resampler_(rate), stream_(std::move(stream)), onset_found_(onset == Onset::kept) {}

bool SpeechDelivery::Take(std::span<const std::int16_t> samples) {
    samples_.clear();
    resampler_.Process(samples.data(), samples.size(), samples_);
    return Deliver();
}

void SpeechDelivery::Finish() {
    samples_.clear();
    resampler_.Finish(samples_);
    Deliver();
}

bool SpeechDelivery::Deliver() {
    if (onset_found_) return stream_.put(samples_);
    const auto onset = std::find_if(samples_.begin(), samples_.end(),
                                    [](float sample) { return std::abs(sample) > audible; });
    // Nothing to put yet, but the text may have been dropped.
    if (onset == samples_.end()) return stream_.put({});
    onset_found_ = true;
    if (stream_.sounding() && !stream_.put(pause)) return false;
    const auto silent = static_cast<std::size_t>(onset - samples_.begin());
    return stream_.put(std::span<const float>(samples_).subspan(silent));
}

}  // namespace tamlo
