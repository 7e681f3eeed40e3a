// The clock's thread: watches over the card, and pulls in its place.
#include "audio/output/clock_output.h"

#include <limits>

#include "services/thread.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;

constexpr auto patience_with_card = 500ms;
constexpr auto watch_interval = 125ms;
// Nobody listens: rarer wakes are worth more than the moment at which a sound is known to be over.
constexpr auto block_time = 50ms;
constexpr int block_frames = stream_rate / 20;
// Further behind than this, the machine was asleep: the time is gone for the sounds as well.
constexpr auto most_to_catch_up = 250ms;

}  // namespace

// Each block's time is counted from the first, so that no error adds up.
ClockPulls::Time ClockPulls::Turn(Time now) {
    if (tap_->InCharge() == Output::card && tap_->CardSilence(now) > patience_with_card) {
        tap_->PutClockInCharge();
    }
    if (tap_->InCharge() == Output::card) {
        next_block_.reset();
        return now + watch_interval;
    }
    if (!next_block_ || now - *next_block_ > most_to_catch_up) next_block_ = now;
    for (; *next_block_ <= now; *next_block_ += block_time) tap_->Pass(block_frames);
    return *next_block_;
}

ClockOutput::ClockOutput(std::shared_ptr<Tap> tap)
    : pulls_(std::move(tap)), thread_(StartThread([this] { Run(); })) {}

ClockOutput::~ClockOutput() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    wake_.notify_all();
    if (thread_.joinable()) thread_.join();
}

double ClockOutput::TurnWithoutThread() {
    if (thread_.joinable()) return std::numeric_limits<double>::infinity();
    const auto now = std::chrono::steady_clock::now();
    return std::chrono::duration<double>(pulls_.Turn(now) - now).count();
}

void ClockOutput::Run() {
    while (SleepUntil(pulls_.Turn(std::chrono::steady_clock::now()))) {
    }
}

/// False when the output is to end.
bool ClockOutput::SleepUntil(ClockPulls::Time time) {
    std::unique_lock lock(mutex_);
    return !wake_.wait_until(lock, time, [this] { return ending_; });
}

}  // namespace tamlo
