// The words of captions, and which are left out.
#include "reading/captions.h"

#include <utility>

namespace tamlo {
namespace {

std::string Movement(SoundPath path, int pan) {
    if (path == SoundPath::none || pan == 0) {
        return path == SoundPath::nears ? ", comes near and goes away" : "";
    }
    // A positive pan takes from the left ear.
    std::string way = pan > 0 ? ", right to left" : ", left to right";
    switch (path) {
        case SoundPath::halts: return way + ", halting";
        case SoundPath::in_line: return ", one behind the other" + way;
        default: return way;
    }
}

}  // namespace

Captions::Captions(std::function<SoundMeaning(std::string_view name)> meaning, const Clock& clock,
                   WriteLine write)
    : meaning_(std::move(meaning)), clock_(clock), write_(std::move(write)) {}

void Captions::Started(const SoundMeaning& sound, int pan) {
    if (sound.what.empty()) return;
    Tell("[" + std::string(sound.what) + Movement(sound.path, pan) + "]",
         sound.bed ? std::chrono::microseconds(same_bed) : same_sound);
}

void Captions::Beeped() {
    Tell("[beep]", same_sound);
}

void Captions::Tell(const std::string& caption, std::chrono::microseconds pause) {
    const auto now = clock_.Steady();
    const auto [told, first] = told_.try_emplace(caption, now);
    if (!first && now - told->second < pause) return;
    told->second = now;
    write_(caption);
}

}  // namespace tamlo
