#include "web/sound/ring_filler.h"

#include <algorithm>

namespace tamlo {
namespace {

constexpr std::uint32_t piece = longest_piece;
constexpr std::uint32_t depth = stream_rate * 128 / 1000 / piece * piece;
static_assert(depth + 4 * piece <= Mixer::most_ahead);
/// What is heard next is left alone: the worklet may be taking it just now.
constexpr int margin = SharedRing::quantum;
constexpr std::uint32_t fade_frames = 128;
constexpr std::uint32_t least_beside = 2 * piece;
constexpr std::uint32_t most_beside = 2048;

/// Positions wrap, so which of two comes later is a matter of their distance.
std::int32_t Distance(std::uint32_t from, std::uint32_t to) {
    return static_cast<std::int32_t>(to - from);
}

}  // namespace

RingFiller::RingFiller(SharedRing& ring, Tap& tap, RingBell& bell)
    : ring_(ring), tap_(tap), bell_(bell), side_(2 * most_beside), block_(2 * piece) {}

void RingFiller::Turn() {
    const std::uint32_t taken = ring_.taken.load();
    const std::uint32_t asked = ring_.asked.load();
    const bool moves = asked != asked_;
    asked_ = asked;
    if (tap_.InCharge() == Output::clock && !moves) return LetGo(taken);

    const std::int32_t held = Distance(taken, ring_.written.load());
    if (held < 0 || held > std::int32_t{depth + piece}) LetGo(taken);
    const int ahead = Distance(taken, ring_.written.load() - to_rewrite_);
    tap_.Commit(std::max(ahead, 0));
    if (bell_.TakeRing()) changed_ = true;
    if (changed_) {
        const auto rewound = tap_.Rewind(std::max(ahead - margin, 0));
        changed_ = !rewound;  // else with the next turn
        if (rewound.value_or(0) > 0) {
            to_rewrite_ += static_cast<std::uint32_t>(*rewound);
            to_fade_ = true;
        }
    }
    Fill();
}

/// Nobody takes anything: what waits in the ring would only be heard when its time has gone.
void RingFiller::LetGo(std::uint32_t taken) {
    ring_.written.store(taken);
    to_rewrite_ = 0;
    to_fade_ = false;
}

/// Renders the first frames of a change and lays them over those that are still to be taken.
/// Returns how many were rendered.
std::uint32_t RingFiller::LayOver(std::uint32_t at) {
    const std::uint32_t wanted =
        std::clamp(ring_.burst.load() + SharedRing::quantum, least_beside, most_beside);
    std::uint32_t made = 0;
    while (made < wanted && made + piece <= most_beside) {
        if (!tap_.PullAhead(&side_[2 * made], piece)) break;
        made += piece;
    }
    const std::int32_t passed = Distance(at, ring_.taken.load());
    std::uint32_t skip = 0;
    if (passed > 0) {
        // And the quantum that may be read at this moment.
        skip = std::min(static_cast<std::uint32_t>(passed) + SharedRing::quantum, made);
        ++ring_.late;
    }
    const std::uint32_t old = to_rewrite_ > skip ? to_rewrite_ - skip : 0;
    FadeInto(at + skip, &side_[2 * skip], made - skip, std::min(old, fade_frames));
    ring_.changed.store(at + skip);
    ++ring_.changes;
    return made;
}

void RingFiller::Fill() {
    std::uint32_t at = ring_.written.load() - to_rewrite_;
    if (to_fade_) {
        const std::uint32_t made = LayOver(at);
        to_fade_ = made == 0;
        at += made;
    }
    const auto wanted = [&] {
        const bool rewriting = Distance(at, ring_.written.load()) > 0;
        return rewriting ||
               Distance(ring_.taken.load(), at) + std::int32_t{piece} <= std::int32_t{depth};
    };
    while (!to_fade_ && wanted() && tap_.PullAhead(block_.data(), piece)) {
        Write(at, block_.data(), piece);
        at += piece;
        if (Distance(ring_.written.load(), at) > 0) ring_.written.store(at);
    }
    const std::int32_t left = Distance(at, ring_.written.load());
    to_rewrite_ = static_cast<std::uint32_t>(std::max(left, 0));
    if (left < 0) ring_.written.store(at);
}

void RingFiller::Write(std::uint32_t at, const float* from, std::uint32_t frames) {
    for (std::uint32_t i = 0; i < frames; ++i) {
        float* const slot = &ring_.samples[2 * ((at + i) % SharedRing::frames)];
        slot[0] = from[2 * i];
        slot[1] = from[2 * i + 1];
    }
}

/// The first `fade` frames lead from what is there to what is new.
void RingFiller::FadeInto(std::uint32_t at, const float* from, std::uint32_t frames,
                          std::uint32_t fade) {
    fade = std::min(fade, frames);
    for (std::uint32_t i = 0; i < fade; ++i) {
        const float share = static_cast<float>(i + 1) / static_cast<float>(fade + 1);
        float* const slot = &ring_.samples[2 * ((at + i) % SharedRing::frames)];
        slot[0] += share * (from[2 * i] - slot[0]);
        slot[1] += share * (from[2 * i + 1] - slot[1]);
    }
    Write(at + fade, from + 2 * fade, frames - fade);
}

}  // namespace tamlo
