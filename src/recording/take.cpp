#include "recording/take.h"

#include <algorithm>
#include <array>

namespace tamlo {

Take::Take(Part part, const std::string& path, WaveReader read)
    : part_(part), file_(path), sounds_(mixer_, std::move(read)) {
    mixer_.Attach(voice_);
}

Take::~Take() {
    mixer_.Detach(voice_);
}

void Take::Say(std::span<const float> samples) {
    unsaid_.insert(unsaid_.end(), samples.begin(), samples.end());
}

void Take::Hush() {
    unsaid_.clear();
    said_ = 0;
    voice_.Drop();
}

void Take::FeedVoice() {
    const std::size_t room = static_cast<std::size_t>(std::max(voice_.Room(), 0));
    const std::size_t count = std::min(room, unsaid_.size() - said_);
    if (count == 0) return;
    voice_.Put(std::span(unsaid_).subspan(said_, count));
    voice_.Publish();
    said_ += count;
    if (said_ < unsaid_.size()) return;
    unsaid_.clear();
    said_ = 0;
}

void Take::RenderTo(Ticks now) {
    std::array<float, 2 * tick_frames> stereo;
    for (; rendered_ < now; ++rendered_) {
        FeedVoice();
        mixer_.Mix(stereo.data(), tick_frames);
        file_.Write(stereo);
    }
}

}  // namespace tamlo
