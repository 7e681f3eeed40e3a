// SDL's audio device, and the keeper that stays with it. Only the keeper's thread opens and closes
// the device: a sound server that hangs can hold up nothing but the keeper.
#include "platform/desktop/sound_card.h"

#include <SDL.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "platform/desktop/block_size.h"
#include "platform/desktop/realtime.h"
#include "platform/desktop/sound_servers.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto longest_opening = 1500ms;  // that a start waits for
constexpr auto watch_interval = 125ms;
constexpr auto retry_interval = 5s;
// A card that has not asked for a block so many times the keeper looked (about 2 s) doesn't work:
// another driver may. Counted rather than timed, so that a process that was halted doesn't mistake
// its own absence for the card's.
constexpr int longest_silence = 16;
// The first moment of a stream counts for nothing: servers take it to find their pace.
constexpr auto settling_time = 1s;

}  // namespace

class SoundCard::Keeper {
  public:
    Keeper(std::shared_ptr<Tap> tap, std::function<bool()> may_interrupt)
        : tap_(std::move(tap)), may_interrupt_(std::move(may_interrupt)) {}

    void Run();
    void AwaitFirstOpening();
    bool End();
    CardReport Report();

  private:
    bool Open();
    bool OpenWith(const std::string& driver);
    void Close();
    void Watch();
    bool Sleep(std::chrono::milliseconds time);
    void Note(bool opened, const std::string& driver);
    static void OnBlock(void* keeper, Uint8* bytes, int count);
    void Fill(float* stereo, int frames);

    std::shared_ptr<Tap> tap_;
    std::function<bool()> may_interrupt_;

    // The keeper's thread only.
    SDL_AudioDeviceID device_ = 0;
    std::optional<std::string>
        failed_driver_;  ///< opened but never asked for a block: not the next choice
    int blocks_seen_ = 0;
    int silent_watches_ = 0;  ///< since the last block
    BlockSize size_;

    // The audio thread counts, the keeper reads.
    std::atomic<int> late_{0};
    std::atomic<int> blocks_{0};  ///< since the opening
    Clock::time_point last_block_;
    Clock::time_point counted_from_;  ///< late blocks before are not counted

    std::mutex mutex_;
    std::condition_variable wake_;
    bool first_opening_over_ = false;
    bool ending_ = false;
    bool ended_ = false;
    std::string driver_;
    int frames_ = 0;
    int openings_ = 0;
};

void SoundCard::Keeper::Run() {
    do {
        if (device_ == 0 && !Open()) {
            tap_->PutClockInCharge();
            Note(false, "");
            if (!Sleep(retry_interval)) break;
            continue;
        }
        Watch();
    } while (Sleep(watch_interval));
    Close();
    const std::lock_guard lock(mutex_);
    ended_ = true;
    wake_.notify_all();
}

bool SoundCard::Keeper::Open() {
    KeepAlsaQuiet();
    for (const std::string& driver : SoundDrivers()) {
        if (driver != failed_driver_ && OpenWith(driver)) return true;
    }
    failed_driver_.reset();
    return false;
}

// SDL_AudioInit rather than SDL_InitSubSystem: it leaves alone what a window, opened by another
// thread, is setting up.
bool SoundCard::Keeper::OpenWith(const std::string& driver) {
    if (SDL_AudioInit(driver.empty() ? nullptr : driver.c_str()) != 0) return false;
    SDL_AudioSpec wanted{};
    wanted.freq = stream_rate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(size_.Frames());
    wanted.callback = OnBlock;
    wanted.userdata = this;
    blocks_ = 0;
    silent_watches_ = 0;
    last_block_ = counted_from_ = Clock::now() + settling_time;
    // A PipeWire server without a sink, as it runs for screen sharing only, never finishes opening.
    const bool no_sink =
        SDL_GetCurrentAudioDriver() == std::string("pipewire") && SDL_GetNumAudioDevices(0) == 0;
    device_ = no_sink ? 0 : SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device_ == 0) {
        SDL_AudioQuit();
        return false;
    }
    size_.Opened(late_, counted_from_);
    SDL_PauseAudioDevice(device_, 0);
    const auto deadline = Clock::now() + longest_opening;
    while (blocks_ == 0 && Clock::now() < deadline && Sleep(1ms)) {
    }
    Note(true, SDL_GetCurrentAudioDriver());
    return true;
}

void SoundCard::Keeper::Close() {
    if (device_ == 0) return;
    SDL_CloseAudioDevice(device_);
    SDL_AudioQuit();
    device_ = 0;
    Note(false, "");
}

void SoundCard::Keeper::Watch() {
    const int blocks = blocks_;
    silent_watches_ = blocks == blocks_seen_ ? silent_watches_ + 1 : 0;
    blocks_seen_ = blocks;
    const bool silent = silent_watches_ > longest_silence;
    const bool gone = SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED;
    if (silent || gone) {
        if (silent && blocks == 0) failed_driver_ = driver_;
        Close();
    } else if (const int wanted = size_.Wanted(late_, Clock::now());
               wanted != size_.Frames() && may_interrupt_()) {
        size_.Change(wanted);
        Close();
    }
    if (device_ == 0 && !Open()) tap_->PutClockInCharge();
}

void SoundCard::Keeper::OnBlock(void* keeper, Uint8* bytes, int count) {
    constexpr int frame_bytes = 2 * sizeof(float);
    static_cast<Keeper*>(keeper)->Fill(reinterpret_cast<float*>(bytes), count / frame_bytes);
}

// A server holds about one block more than the one it is asking for, so that a block asked for
// two blocks' time after the last has most likely left a gap.
void SoundCard::Keeper::Fill(float* stereo, int frames) {
    if (blocks_ == 0) TakeRealTime();
    const auto now = Clock::now();
    const auto block_time = std::chrono::microseconds(1000000LL * frames / stream_rate);
    const auto gap = now - last_block_;
    if (last_block_ > counted_from_ && gap > 2 * block_time && gap < 1s) ++late_;
    last_block_ = now;

    tap_->Pull(Output::card, stereo, frames);
    ++blocks_;
}

/// False when the keeper is to end.
bool SoundCard::Keeper::Sleep(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    return !wake_.wait_for(lock, time, [this] { return ending_; });
}

void SoundCard::Keeper::Note(bool opened, const std::string& driver) {
    const std::lock_guard lock(mutex_);
    driver_ = driver;
    frames_ = size_.Frames();
    openings_ += opened;
    first_opening_over_ = true;
    wake_.notify_all();
}

void SoundCard::Keeper::AwaitFirstOpening() {
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, longest_opening, [this] { return first_opening_over_; });
}

/// False if the driver holds the keeper up.
bool SoundCard::Keeper::End() {
    std::unique_lock lock(mutex_);
    ending_ = true;
    wake_.notify_all();
    return wake_.wait_for(lock, 1s, [this] { return ended_; });
}

CardReport SoundCard::Keeper::Report() {
    const std::lock_guard lock(mutex_);
    return {driver_, frames_, late_, openings_};
}

SoundCard::SoundCard(std::shared_ptr<Tap> tap, std::function<bool()> may_interrupt)
    : keeper_(std::make_shared<Keeper>(std::move(tap), std::move(may_interrupt))) {
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tamlo Delivery");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Tamlo Delivery");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
    AskForRealTime();
    // The thread shares the keeper, so that it can be left behind in a driver that hangs.
    std::thread([keeper = keeper_] { keeper->Run(); }).detach();
    keeper_->AwaitFirstOpening();
}

SoundCard::~SoundCard() {
    keeper_->End();
}

CardReport SoundCard::Report() const {
    return keeper_->Report();
}

}  // namespace tamlo
