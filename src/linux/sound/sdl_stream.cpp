// SDL's audio device.
#include "linux/sound/sdl_stream.h"

#include <SDL2/SDL.h>

#include <algorithm>

#include "linux/sound/realtime.h"
#include "linux/sound/sound_servers.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

}  // namespace

// SDL_AudioInit rather than SDL_InitSubSystem: it leaves alone what a window, opened by another
// thread, is setting up.
class SdlStream::Library {
  public:
    explicit Library(const std::string& driver)
        : open_(SDL_AudioInit(driver.empty() ? nullptr : driver.c_str()) == 0) {}
    ~Library() {
        if (open_) SDL_AudioQuit();
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    bool IsOpen() const { return open_; }

  private:
    const bool open_;
};

SdlStream::SdlStream(std::shared_ptr<Library> library, std::shared_ptr<Tap> tap, int frames,
                     std::atomic<int>& late)
    : library_(std::move(library)),
      tap_(std::move(tap)),
      frames_(frames),
      counted_from_(Clock::now() + settling_time),
      late_(late),
      last_block_(counted_from_) {}

std::unique_ptr<SdlStream> SdlStream::Open(const std::string& driver, std::shared_ptr<Tap> tap,
                                           int frames, std::atomic<int>& late) {
    KeepAlsaQuiet();
    auto library = std::make_shared<Library>(driver);
    if (!library->IsOpen()) return nullptr;
    std::unique_ptr<SdlStream> stream(
        new SdlStream(std::move(library), std::move(tap), frames, late));
    return stream->OpenDevice() ? std::move(stream) : nullptr;
}

std::string SdlStream::Driver() {
    const char* const driver = SDL_GetCurrentAudioDriver();
    return driver == nullptr ? "" : driver;
}

std::unique_ptr<CardStream> SdlStream::Another(int frames) {
    std::unique_ptr<SdlStream> stream(new SdlStream(library_, tap_, frames, late_));
    return stream->OpenDevice() ? std::move(stream) : nullptr;
}

bool SdlStream::OpenDevice() {
    SDL_AudioSpec wanted{};
    wanted.freq = stream_rate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(frames_);
    wanted.callback = OnBlock;
    wanted.userdata = this;
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device_ != 0) SDL_PauseAudioDevice(device_, 0);
    return device_ != 0;
}

SdlStream::~SdlStream() {
    if (device_ != 0) SDL_CloseAudioDevice(device_);
}

bool SdlStream::Gone() const {
    return SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED;
}

void SdlStream::OnBlock(void* stream, std::uint8_t* bytes, int count) {
    constexpr int frame_bytes = 2 * sizeof(float);
    static_cast<SdlStream*>(stream)->Fill(reinterpret_cast<float*>(bytes), count / frame_bytes);
}

// A server holds about one block more than the one it is asking for, so that a block asked for
// two blocks' time after the last has most likely left a gap.
void SdlStream::Fill(float* stereo, int frames) {
    if (blocks_ == 0) TakeRealTime();
    const auto now = Clock::now();
    const auto block_time = std::chrono::microseconds(1000000LL * frames / stream_rate);
    const auto gap = now - last_block_;
    if (last_block_ > counted_from_ && gap > 2 * block_time && gap < 1s) ++late_;
    last_block_ = now;

    if (connected_) {
        tap_->Pull(stereo, frames);
    } else {
        std::fill_n(stereo, 2 * frames, 0.0F);
    }
    ++blocks_;
}

}  // namespace tamlo
