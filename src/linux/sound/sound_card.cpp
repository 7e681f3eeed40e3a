// The stream to the card, and the keeper that stays with it. Only the keeper's thread opens and
// closes the device: a sound server that hangs can hold up nothing but the keeper.
#include "linux/sound/sound_card.h"

#include <SDL2/SDL.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

#include "linux/sound/block_size.h"
#include "linux/sound/card_stream.h"
#include "linux/sound/pulse_stream.h"
#include "linux/sound/realtime.h"
#include "linux/sound/sdl_stream.h"
#include "linux/sound/sound_servers.h"
#include "services/thread.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto longest_opening = 1500ms;  // that a start waits for
constexpr auto watch_interval = 125ms;
// Between trials to open a card, which become rarer.
constexpr auto first_retry = 125ms;
constexpr auto last_retry = 5s;
// A card that has not asked for a block so many times the keeper looked (about 2 s) doesn't work:
// another driver may. Counted rather than timed, so that a process that was halted doesn't mistake
// its own absence for the card's.
constexpr int longest_silence = 16;
// A stream that has asked for so many blocks has begun to sound.
constexpr int enough_blocks = 4;

}  // namespace

class SoundCard::Keeper {
  public:
    Keeper(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes,
           std::function<bool()> may_interrupt)
        : tap_(std::move(tap)),
          changes_(std::move(changes)),
          may_interrupt_(std::move(may_interrupt)) {}

    void Run();
    void GoWithout();
    void AwaitFirstOpening();
    bool End();
    CardReport Report();

  private:
    enum class Trial { opened, failed, hangs };

    bool Open();
    Trial OpenWith(const std::string& driver);
    std::optional<Trial> OpenPulse();
    bool OpenSdl(const std::string& driver);
    void Opened(const std::string& driver);
    bool AwaitBlocks(const CardStream& stream, int count);
    void Close();
    void Watch();
    void Resize(int frames);
    bool Sleep(std::chrono::milliseconds time);
    void Note(const std::string& driver);

    const std::shared_ptr<Tap> tap_;
    const std::shared_ptr<EventBell> changes_;
    const std::function<bool()> may_interrupt_;
    std::atomic<int> late_{0};

    // The keeper's thread only.
    std::unique_ptr<CardStream> stream_;
    SdlStream* sdl_stream_ = nullptr;  ///< the same, if it is the audio library's
    /// Opened but never asked for a block: not the next choice.
    std::optional<std::string> failed_driver_;
    int blocks_seen_ = 0;
    int silent_watches_ = 0;  ///< since the last block
    BlockSize size_;

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
    std::chrono::milliseconds retry = first_retry;
    std::chrono::milliseconds pause = watch_interval;
    do {
        if (stream_ != nullptr) Watch();
        if (stream_ != nullptr || Open()) {
            retry = first_retry;
            pause = watch_interval;
        } else {
            tap_->PutClockInCharge();
            Note("");
            pause = retry;
            retry = std::min<std::chrono::milliseconds>(retry * 3 / 2, last_retry);
        }
    } while (Sleep(pause));
    Close();
    const std::lock_guard lock(mutex_);
    ended_ = true;
    wake_.notify_all();
}

/// In place of Run, where there is no thread for it: as if there were no card.
void SoundCard::Keeper::GoWithout() {
    tap_->PutClockInCharge();
    Note("");
    ended_ = true;
}

bool SoundCard::Keeper::Open() {
    for (const std::string& driver : SoundDrivers()) {
        if (driver == failed_driver_) continue;
        switch (OpenWith(driver)) {
            case Trial::opened: return true;
            case Trial::failed: break;
            case Trial::hangs: return false;
        }
    }
    failed_driver_.reset();
    return false;
}

SoundCard::Keeper::Trial SoundCard::Keeper::OpenWith(const std::string& driver) {
    if (driver == "pulseaudio") {
        if (const std::optional<Trial> trial = OpenPulse()) return *trial;
    }
    return OpenSdl(driver) ? Trial::opened : Trial::failed;
}

/// None if the audio library may know a way. A server that does not answer is waited for, so that
/// it is heard as soon as it does; nobody waits for the keeper so long.
std::optional<SoundCard::Keeper::Trial> SoundCard::Keeper::OpenPulse() {
    auto stream = std::make_unique<PulseStream>(tap_, changes_, size_.Frames(), late_);
    const auto longest = Clock::now() + longest_opening;
    while (stream->Opening() == PulseStream::Answer::awaited &&
           Sleep(Clock::now() < longest ? 1ms : 20ms)) {
    }
    switch (stream->Opening()) {
        case PulseStream::Answer::awaited:
        case PulseStream::Answer::hangs: return Trial::hangs;
        case PulseStream::Answer::none: return Trial::failed;
        case PulseStream::Answer::other: return std::nullopt;
        case PulseStream::Answer::opened: break;
    }
    AskBrokerFor(stream->Thread());
    stream_ = std::move(stream);
    Opened("pulseaudio");
    return Trial::opened;
}

// SDL_AudioInit rather than SDL_InitSubSystem: it leaves alone what a window, opened by another
// thread, is setting up.
bool SoundCard::Keeper::OpenSdl(const std::string& driver) {
    KeepAlsaQuiet();
    if (SDL_AudioInit(driver.empty() ? nullptr : driver.c_str()) != 0) return false;
    // A PipeWire server without a sink, as it runs for screen sharing only, never finishes opening.
    const bool no_sink =
        SDL_GetCurrentAudioDriver() == std::string("pipewire") && SDL_GetNumAudioDevices(0) == 0;
    std::unique_ptr<SdlStream> stream;
    if (!no_sink) stream = SdlStream::Open(tap_, size_.Frames(), late_);
    if (stream == nullptr) {
        SDL_AudioQuit();
        return false;
    }
    stream->Connect(true);
    size_.Opened(late_, stream->CountedFrom());
    sdl_stream_ = stream.get();
    stream_ = std::move(stream);
    Opened(SDL_GetCurrentAudioDriver());
    return true;
}

void SoundCard::Keeper::Opened(const std::string& driver) {
    silent_watches_ = 0;
    AwaitBlocks(*stream_, 1);
    Note(driver);
}

/// False if they have not come in the time that an opening may take.
bool SoundCard::Keeper::AwaitBlocks(const CardStream& stream, int count) {
    const auto deadline = Clock::now() + longest_opening;
    while (stream.Blocks() < count && Clock::now() < deadline && Sleep(1ms)) {
    }
    return stream.Blocks() >= count;
}

void SoundCard::Keeper::Close() {
    if (stream_ == nullptr) return;
    stream_.reset();
    if (sdl_stream_ != nullptr) SDL_AudioQuit();
    sdl_stream_ = nullptr;
    Note("");
}

void SoundCard::Keeper::Watch() {
    const int blocks = stream_->Blocks();
    silent_watches_ = blocks == blocks_seen_ && !stream_->Paused() ? silent_watches_ + 1 : 0;
    blocks_seen_ = blocks;
    const bool silent = silent_watches_ > longest_silence;
    if (silent || stream_->Gone()) {
        if (silent && blocks == 0) failed_driver_ = driver_;
        // Now rather than when the clock notices: closing can take long.
        tap_->PutClockInCharge();
        Close();
    } else if (sdl_stream_ != nullptr) {
        const int wanted = size_.Wanted(late_, Clock::now());
        if (wanted != size_.Frames() && may_interrupt_()) Resize(wanted);
    }
}

// The next stream sounds before the last is closed, so that a key pressed meanwhile is answered
// however long a busy machine takes. Only a card that serves one stream at a time pauses.
void SoundCard::Keeper::Resize(int frames) {
    std::unique_ptr<SdlStream> next = SdlStream::Open(tap_, frames, late_);
    if (next == nullptr) {
        tap_->PutClockInCharge();
        Close();
        size_.Change(frames);
        return;
    }
    if (!AwaitBlocks(*next, enough_blocks)) {
        size_.Opened(late_, Clock::now());
        return;
    }
    sdl_stream_->Connect(false);
    next->Connect(true);
    sdl_stream_ = next.get();
    stream_ = std::move(next);
    size_.Change(frames);
    size_.Opened(late_, sdl_stream_->CountedFrom());
    Note(driver_);
}

/// False when the keeper is to end.
bool SoundCard::Keeper::Sleep(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    return !wake_.wait_for(lock, time, [this] { return ending_; });
}

void SoundCard::Keeper::Note(const std::string& driver) {
    const std::lock_guard lock(mutex_);
    driver_ = driver;
    frames_ = size_.Frames();
    openings_ += !driver.empty();
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

SoundCard::SoundCard(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes,
                     std::function<bool()> may_interrupt)
    : keeper_(
          std::make_shared<Keeper>(std::move(tap), std::move(changes), std::move(may_interrupt))) {
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tamlo Delivery");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Tamlo Delivery");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
    AskForRealTime();
    // The thread shares the keeper, so that it can be left behind in a driver that hangs.
    std::thread thread = StartThread([keeper = keeper_] { keeper->Run(); });
    if (thread.joinable()) {
        thread.detach();
    } else {
        keeper_->GoWithout();
    }
}

SoundCard::~SoundCard() {
    keeper_->End();
}

void SoundCard::AwaitOpening() const {
    keeper_->AwaitFirstOpening();
}

CardReport SoundCard::Report() const {
    return keeper_->Report();
}

}  // namespace tamlo
