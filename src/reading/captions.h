// Captions: what the sounds are, where they move, in brackets, for players who read.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "services/clock.h"

namespace tamlo {

/// How a sound moves while it is heard.
enum class SoundPath {
    none,     ///< stays where the player is
    crosses,  ///< from one side to the other
    halts,    ///< as well, with a halt in the middle
    in_line,  ///< as well, several one behind the other
    nears,    ///< comes near and goes away again
};

/// What the game means by a sound.
struct SoundMeaning {
    std::string_view what;  ///< empty for a sound that tells nothing
    SoundPath path = SoundPath::none;
    bool bed = false;  ///< lies under all else, and is started again and again
};

using WriteLine = std::function<void(const std::string& line)>;

/// Writes a caption for every sound that starts, at most one for the same caption in `same_sound`,
/// and for a bed in `same_bed`. Captions begin with "[", and nothing else does.
class Captions {
  public:
    static constexpr std::chrono::seconds same_sound{2};
    static constexpr std::chrono::minutes same_bed{5};

    /// `meaning` tells what a wave file without its ending stands for; `clock` must outlive this
    /// object.
    Captions(std::function<SoundMeaning(std::string_view name)> meaning, const Clock& clock,
             WriteLine write);

    SoundMeaning MeaningOf(std::string_view name) const { return meaning_(name); }
    /// A sound starts, or is told where it starts, as for `SoundBuffer::SetPan`.
    void Started(const SoundMeaning& sound, int pan);
    void Beeped();

  private:
    void Tell(const std::string& caption, std::chrono::microseconds pause);

    std::function<SoundMeaning(std::string_view)> meaning_;
    const Clock& clock_;
    WriteLine write_;
    std::map<std::string, std::chrono::microseconds> told_;  ///< when each was last told
};

}  // namespace tamlo
