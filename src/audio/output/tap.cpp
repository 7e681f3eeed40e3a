// Who is in charge of pulling, and how the card comes back.
#include "audio/output/tap.h"

#include <algorithm>

namespace tamlo {
namespace {

// A server that hangs may ask for a block now and then: so many in a row make a card that works.
constexpr int enough_steady_pulls = 8;
constexpr std::chrono::milliseconds longest_steady_gap{100};

}  // namespace

Tap::Tap(Mixer& mixer) : mixer_(&mixer), card_pulled_(Now()) {}

Tap::Nanoseconds Tap::Now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

void Tap::Pull(float* stereo, int frames) noexcept {
    NoteCardPull();
    const auto turn = TurnOf(Output::card);
    if (!turn) {
        std::fill_n(stereo, 2 * frames, 0.0F);
        return;
    }
    mixer_->Mix(stereo, frames, !unheard_.exchange(false));
    Count(frames);
}

// What is mixed again is asked for by a change, not by the card, which may be paused.
bool Tap::PullAhead(float* stereo, int frames) noexcept {
    const int again = std::min(to_mix_again_, frames);
    if (frames > again) NoteCardPull();
    const auto turn = TurnOf(Output::card);
    if (!turn) {
        to_mix_again_ -= again;
        std::fill_n(stereo, 2 * frames, 0.0F);
        return true;
    }
    const bool unheard = unheard_.exchange(false);
    const bool mixed = mixer_->MixAhead(stereo, frames, !unheard);
    if (mixed) {
        to_mix_again_ -= again;
    } else if (unheard) {
        unheard_ = true;
    }
    return mixed;
}

void Tap::Commit(int ahead) noexcept {
    if (const auto turn = TurnOf(Output::card)) Count(mixer_->Commit(ahead));
}

std::optional<int> Tap::Rewind(int ahead) noexcept {
    const auto turn = TurnOf(Output::card);
    if (!turn) return 0;
    const std::optional<int> rewound = mixer_->Rewind(ahead);
    to_mix_again_ += rewound.value_or(0);
    return rewound;
}

void Tap::Pass(int frames) noexcept {
    const auto turn = TurnOf(Output::clock);
    if (!turn) return;
    unheard_ = false;  // the sources are told right now
    mixer_->Pass(frames);
    Count(frames);
}

std::unique_lock<std::mutex> Tap::TurnOf(Output output) noexcept {
    std::unique_lock lock(pulling_, std::try_to_lock);
    if (lock && (mixer_ == nullptr || in_charge_ != output)) lock.unlock();
    return lock;
}

void Tap::Count(int frames) noexcept {
    frames_.fetch_add(frames, std::memory_order_relaxed);
    quiet_.store(mixer_->FramesOfQuiet(), std::memory_order_relaxed);
}

void Tap::NoteCardPull() noexcept {
    const Nanoseconds now = Now();
    const Nanoseconds gap = now - card_pulled_.exchange(now);
    if (in_charge_ == Output::card) return;
    steady_pulls_ = gap < longest_steady_gap ? steady_pulls_ + 1 : 0;
    if (steady_pulls_ < enough_steady_pulls) return;
    steady_pulls_ = 0;
    in_charge_ = Output::card;
}

void Tap::Close() {
    const std::lock_guard lock(pulling_);
    mixer_ = nullptr;
}

std::chrono::milliseconds Tap::CardSilence(std::chrono::steady_clock::time_point now) const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch() -
                                                                 card_pulled_.load());
}

}  // namespace tamlo
