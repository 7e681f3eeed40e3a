// The stream to the card, and the manager that stays with it. Only the manager's thread opens and
// closes the device: a sound server that hangs can hold up nothing but the manager.
#include "linux/sound/sound_card.h"

#include <SDL2/SDL.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "linux/sound/block_size.h"
#include "linux/sound/card_stream.h"
#include "linux/sound/pipewire_stream.h"
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
constexpr auto longest_answer = 35s;      // of a server, then it is tried again
constexpr auto longest_return = 3s;       // of the sinks of a server that was there before
constexpr auto watch_interval = 125ms;
// Between trials to open a card, which become rarer.
constexpr auto first_retry = 125ms;
constexpr auto last_retry = 5s;
// A card that has not asked for a block so many times the manager looked (about 2 s) doesn't work:
// another driver may. Counted rather than timed, so that a process that was halted doesn't mistake
// its own absence for the card's.
constexpr int longest_silence = 16;
// A stream that has asked for so many blocks has begun to sound.
constexpr int enough_blocks = 4;

}  // namespace

class SoundCard::Manager {
  public:
    Manager(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes,
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

    /// A way to the card: how its stream is opened, and the blocks that it begins with and may get.
    struct Way {
        std::string_view driver;
        std::unique_ptr<CardStream> (Manager::*open)();
        BlockSize::Range blocks;
    };
    static const std::array<Way, 2> ways;

    bool Open();
    Trial OpenWith(const std::string& driver);
    Trial OpenBy(const Way& way);
    Trial OpenSdl(const std::string& driver);
    std::unique_ptr<CardStream> OpenPipeWire();
    std::unique_ptr<CardStream> OpenPulse();
    Opening AwaitAnswer(const CardStream& stream);
    void Use(std::unique_ptr<CardStream> stream, const std::string& driver);
    bool AwaitBlocks(const CardStream& stream, int count);
    void Close();
    void Watch();
    void WatchBlocks();
    void Replace(int frames);
    bool Sleep(std::chrono::milliseconds time);
    void Note(const std::string& driver);

    const std::shared_ptr<Tap> tap_;
    const std::shared_ptr<EventBell> changes_;
    const std::function<bool()> may_interrupt_;
    std::atomic<int> late_{0};

    // The manager's thread only.
    std::unique_ptr<CardStream> stream_;
    /// Opened but never asked for a block: not the next choice.
    std::optional<std::string> failed_driver_;
    std::string last_driver_;        ///< the last that was opened, as it was asked for
    Clock::time_point last_seen_{};  ///< when it was last known to work
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

/// Every other driver is the audio library's.
const std::array<SoundCard::Manager::Way, 2> SoundCard::Manager::ways{
    Way{"pipewire", &Manager::OpenPipeWire, {128, 512}},
    Way{"pulseaudio", &Manager::OpenPulse, {256, 256}},
};

void SoundCard::Manager::Run() {
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
void SoundCard::Manager::GoWithout() {
    tap_->PutClockInCharge();
    Note("");
    ended_ = true;
}

bool SoundCard::Manager::Open() {
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

SoundCard::Manager::Trial SoundCard::Manager::OpenWith(const std::string& driver) {
    for (const Way& way : ways) {
        if (way.driver == driver) return OpenBy(way);
    }
    return OpenSdl(driver);
}

SoundCard::Manager::Trial SoundCard::Manager::OpenBy(const Way& way) {
    const std::string driver(way.driver);
    if (driver != last_driver_) size_ = BlockSize(way.blocks);
    std::unique_ptr<CardStream> stream = (this->*way.open)();
    switch (AwaitAnswer(*stream)) {
        case Opening::awaited:
        case Opening::hangs: return Trial::hangs;
        case Opening::none: {
            // A server just started knows its sinks a moment later.
            const bool comes_back =
                driver == last_driver_ && Clock::now() < last_seen_ + longest_return;
            return comes_back ? Trial::hangs : Trial::failed;
        }
        case Opening::other: return OpenSdl(driver);
        case Opening::opened: break;
    }
    Use(std::move(stream), driver);
    Note(driver);
    return Trial::opened;
}

std::unique_ptr<CardStream> SoundCard::Manager::OpenPipeWire() {
    return std::make_unique<PipeWireStream>(tap_, size_.Frames(), late_);
}

std::unique_ptr<CardStream> SoundCard::Manager::OpenPulse() {
    return std::make_unique<PulseStream>(tap_, changes_, size_.Frames(), late_);
}

/// A server that does not answer is waited for, so that it is heard as soon as it does; the game
/// does not wait for the manager so long.
Opening SoundCard::Manager::AwaitAnswer(const CardStream& stream) {
    const auto begin = Clock::now();
    const auto waited = [begin] { return Clock::now() - begin; };
    while (stream.Progress() == Opening::awaited && !stream.Gone() && waited() < longest_answer &&
           Sleep(waited() < longest_opening ? 1ms : 20ms)) {
    }
    return stream.Progress();
}

SoundCard::Manager::Trial SoundCard::Manager::OpenSdl(const std::string& driver) {
    if (driver != last_driver_) size_ = BlockSize();
    std::unique_ptr<SdlStream> stream = SdlStream::Open(driver, tap_, size_.Frames(), late_);
    if (stream == nullptr) return Trial::failed;
    stream->Connect(true);
    Use(std::move(stream), driver);
    Note(SdlStream::Driver());
    return Trial::opened;
}

void SoundCard::Manager::Use(std::unique_ptr<CardStream> stream, const std::string& driver) {
    stream_ = std::move(stream);
    size_.Opened(late_, Clock::now());
    last_driver_ = driver;
    silent_watches_ = 0;
    AwaitBlocks(*stream_, 1);
    last_seen_ = Clock::now();
}

/// False if they have not come in the time that an opening may take.
bool SoundCard::Manager::AwaitBlocks(const CardStream& stream, int count) {
    const auto deadline = Clock::now() + longest_opening;
    while (stream.Blocks() < count && Clock::now() < deadline && Sleep(1ms)) {
    }
    return stream.Blocks() >= count;
}

void SoundCard::Manager::Close() {
    if (stream_ == nullptr) return;
    stream_.reset();
    Note("");
}

void SoundCard::Manager::Watch() {
    const int blocks = stream_->Blocks();
    silent_watches_ = blocks == blocks_seen_ && !stream_->Paused() ? silent_watches_ + 1 : 0;
    blocks_seen_ = blocks;
    const bool silent = silent_watches_ > longest_silence;
    if (silent || stream_->Gone()) {
        if (silent && blocks == 0) failed_driver_ = driver_;
        // Now rather than when the clock notices: closing can take long.
        tap_->PutClockInCharge();
        Close();
        return;
    }
    last_seen_ = Clock::now();
    WatchBlocks();
    const std::lock_guard lock(mutex_);
    if (stream_ != nullptr) frames_ = stream_->Frames();
}

void SoundCard::Manager::WatchBlocks() {
    const Resizing resizing = stream_->CanResize();
    const int wanted = size_.Wanted(late_, Clock::now());
    if (resizing == Resizing::none || wanted == size_.Frames()) return;
    if (resizing == Resizing::live) {
        stream_->Resize(wanted);
        size_.Change(wanted);
        size_.Opened(late_, Clock::now());
    } else if (may_interrupt_()) {
        Replace(wanted);
    }
}

// The next stream sounds before the last is closed, so that a key pressed meanwhile is answered
// however long a busy machine takes. Only a card that serves one stream at a time pauses.
void SoundCard::Manager::Replace(int frames) {
    std::unique_ptr<CardStream> next = stream_->Another(frames);
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
    stream_->Connect(false);
    next->Connect(true);
    stream_ = std::move(next);
    size_.Change(frames);
    size_.Opened(late_, Clock::now());
    Note(driver_);
}

/// False when the manager is to end.
bool SoundCard::Manager::Sleep(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    return !wake_.wait_for(lock, time, [this] { return ending_; });
}

void SoundCard::Manager::Note(const std::string& driver) {
    const std::lock_guard lock(mutex_);
    driver_ = driver;
    if (stream_ != nullptr) frames_ = stream_->Frames();
    openings_ += !driver.empty();
    first_opening_over_ = true;
    wake_.notify_all();
}

void SoundCard::Manager::AwaitFirstOpening() {
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, longest_opening, [this] { return first_opening_over_; });
}

/// False if the driver holds the manager up.
bool SoundCard::Manager::End() {
    std::unique_lock lock(mutex_);
    ending_ = true;
    wake_.notify_all();
    return wake_.wait_for(lock, 1s, [this] { return ended_; });
}

CardReport SoundCard::Manager::Report() {
    const std::lock_guard lock(mutex_);
    return {driver_, frames_, late_, openings_};
}

SoundCard::SoundCard(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes,
                     std::function<bool()> may_interrupt)
    : manager_(
          std::make_shared<Manager>(std::move(tap), std::move(changes), std::move(may_interrupt))) {
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tamlo Delivery");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Tamlo Delivery");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
    AskForRealTime();
    // The thread shares the manager, so that it can be left behind in a driver that hangs.
    std::thread thread = StartThread([manager = manager_] { manager->Run(); });
    if (thread.joinable()) {
        thread.detach();
    } else {
        manager_->GoWithout();
    }
}

SoundCard::~SoundCard() {
    manager_->End();
}

void SoundCard::AwaitOpening() const {
    manager_->AwaitFirstOpening();
}

CardReport SoundCard::Report() const {
    return manager_->Report();
}

}  // namespace tamlo
