// The clock's thread: watches over the card, and pulls in its place.
#include "platform/mixing/clock_output.h"

#include <array>

namespace tamlo {
namespace {

using namespace std::chrono_literals;

constexpr auto patience_with_card = 500ms;
constexpr auto watch_interval = 125ms;
// Nobody listens: rarer wakes are worth more than the moment at which a sound is known to be over.
constexpr auto block_time = 25ms;
constexpr int block_frames = stream_rate / 40;
// Further behind than this, the machine was asleep: the time is gone for the sounds as well.
constexpr auto most_to_catch_up = 250ms;

}  // namespace

ClockOutput::ClockOutput(std::shared_ptr<Tap> tap)
    : tap_(std::move(tap)), thread_([this] { Run(); }) {}

ClockOutput::~ClockOutput() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    wake_.notify_all();
    thread_.join();
}

void ClockOutput::Run() {
    do {
        if (tap_->CardSilence() > patience_with_card) tap_->PutClockInCharge();
        if (tap_->InCharge() == Output::clock) TakeStream();
    } while (SleepUntil(std::chrono::steady_clock::now() + watch_interval));
}

// Until the card is back. Each block's time is counted from the first, so that no error adds up.
void ClockOutput::TakeStream() {
    std::array<float, 2 * block_frames> unheard;
    Time next = std::chrono::steady_clock::now();
    while (tap_->InCharge() == Output::clock) {
        tap_->Pull(Output::clock, unheard.data(), block_frames);
        next += block_time;
        const Time now = std::chrono::steady_clock::now();
        if (now - next > most_to_catch_up) next = now;
        if (!SleepUntil(next)) return;
    }
}

/// False when the output is to end.
bool ClockOutput::SleepUntil(Time time) {
    std::unique_lock lock(mutex_);
    return !wake_.wait_until(lock, time, [this] { return ending_; });
}

}  // namespace tamlo
