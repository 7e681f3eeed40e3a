// The texts that are to be spoken, those that are being spoken, and those that may have to be
// spoken again. No thread in it: the caller locks.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "audio/voice/synthesizer.h"

namespace tamlo {

/// A text is begun when the synthesizer gets it, and kept until it has certainly been heard.
class TextQueue {
  public:
    void Add(Utterance utterance) { texts_.push_back({std::move(utterance), {}}); }
    void Clear();

    /// Whether a text has not been begun yet.
    bool Waiting() const { return begun_ < texts_.size(); }
    /// Whether a text has been begun and may not have been heard.
    bool Begun() const { return begun_ > 0; }

    /// Begins the next text; there must be one waiting.
    const Utterance& Begin() { return texts_[begun_++].utterance; }
    /// The text begun last; there must be one.
    const Utterance& Current() const { return texts_[begun_ - 1].utterance; }
    /// The samples of the text begun last end at this position in the stream.
    void EndCurrent(std::uint64_t position) { texts_[begun_ - 1].end = position; }

    /// Forgets the texts that end at or before a position, and of those that nobody has heard all
    /// but the last few.
    void ForgetHeard(std::uint64_t position);
    /// All texts that are kept wait again.
    void StartOver();
    /// Begins all texts that wait, and returns them.
    std::vector<Utterance> TakeWaiting();

  private:
    struct Text {
        Utterance utterance;
        std::optional<std::uint64_t> end;  ///< in the stream, once its last sample is there
    };

    std::deque<Text> texts_;
    std::size_t begun_ = 0;  ///< so many texts, the first, have been begun
};

}  // namespace tamlo
