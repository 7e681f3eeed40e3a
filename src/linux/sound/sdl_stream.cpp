// SDL's audio device.
#include "linux/sound/sdl_stream.h"

#include <SDL2/SDL.h>

#include <algorithm>

#include "linux/sound/realtime.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

}  // namespace

SdlStream::SdlStream(std::shared_ptr<Tap> tap, std::atomic<int>& late)
    : tap_(std::move(tap)),
      counted_from_(Clock::now() + settling_time),
      late_(late),
      last_block_(counted_from_) {}

std::unique_ptr<SdlStream> SdlStream::Open(std::shared_ptr<Tap> tap, int frames,
                                           std::atomic<int>& late) {
    std::unique_ptr<SdlStream> stream(new SdlStream(std::move(tap), late));
    SDL_AudioSpec wanted{};
    wanted.freq = stream_rate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(frames);
    wanted.callback = OnBlock;
    wanted.userdata = stream.get();
    stream->device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (stream->device_ == 0) return nullptr;
    SDL_PauseAudioDevice(stream->device_, 0);
    return stream;
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
