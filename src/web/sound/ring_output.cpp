#include "web/sound/ring_output.h"

#include "services/thread.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;

// Between two looks at the worklet: much less than what is rendered ahead, and what the game learns
// of the ends of sounds is not older.
constexpr auto between_turns = 4ms;
constexpr auto between_looks = 5ms;

}  // namespace

RingOutput::RingOutput(SharedRing& ring, WaveReader read)
    : ring_(ring),
      mixer_(BestInstructions(), bell_),
      sound_(mixer_, std::move(read)),
      tap_(std::make_shared<Tap>(mixer_)),
      thread_(StartThread([this] { Run(); })),
      clock_(tap_) {}

RingOutput::~RingOutput() {
    ending_ = true;
    bell_->Wake();
    if (thread_.joinable()) thread_.join();
    tap_->Close();
}

void RingOutput::Run() {
    RingFiller filler(ring_, *tap_, *bell_);
    while (!ending_) {
        filler.Turn();
        bell_->SleepFor(between_turns);
    }
}

void RingOutput::AwaitWorklet(std::chrono::milliseconds most) const {
    const auto end = std::chrono::steady_clock::now() + most;
    while (ring_.asked == 0 && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(between_looks);
    }
}

void RingOutput::AwaitHeard() const {
    const std::uint32_t end = ring_.written;
    while (Audible() && static_cast<std::int32_t>(end - ring_.taken) > 0) {
        std::this_thread::sleep_for(between_looks);
    }
}

}  // namespace tamlo
