#include "audio/voice/text_queue.h"

#include <utility>

namespace tamlo {
namespace {

/// Texts that nobody has heard are said again when somebody hears: the last, not all of a long
/// time.
constexpr std::size_t most_unheard = 8;

}  // namespace

void TextQueue::Clear() {
    texts_.clear();
    begun_ = 0;
}

void TextQueue::ForgetHeard(std::uint64_t position) {
    while (begun_ > 0 && texts_.front().end &&
           (*texts_.front().end <= position || begun_ > most_unheard)) {
        texts_.pop_front();
        --begun_;
    }
}

void TextQueue::StartOver() {
    begun_ = 0;
    for (Text& text : texts_) text.end.reset();
}

std::vector<Utterance> TextQueue::TakeWaiting() {
    std::vector<Utterance> waiting;
    for (; begun_ < texts_.size(); ++begun_) waiting.push_back(std::move(texts_[begun_].utterance));
    return waiting;
}

}  // namespace tamlo
