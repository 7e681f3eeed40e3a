// The least that can answer a key with sound: a window, a sound device with blocks like the game's,
// and one utterance that is ready in memory. What it takes is the machine's share of the game's
// delays. Any key restarts the utterance, Escape silences it. The argument is the number of
// frames of a block.
#include <SDL2/SDL.h>

#include <array>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace {

constexpr int rate = 48000;
constexpr int length = rate / 2;

std::array<float, length> utterance;
std::atomic<int> position = length;

void Fill(void* /*user*/, Uint8* bytes, int count) {
    auto* samples = reinterpret_cast<float*>(bytes);
    const int frames = count / static_cast<int>(2 * sizeof(float));
    const int begin = position;
    int at = begin;
    for (int frame = 0; frame < frames; ++frame) {
        const float sample = at < length ? utterance[static_cast<std::size_t>(at++)] : 0;
        samples[2 * frame] = samples[2 * frame + 1] = sample;
    }
    int expected = begin;  // unless a key has moved it meanwhile
    position.compare_exchange_strong(expected, at);
}

}  // namespace

int main(int count, char** arguments) {
    for (int i = 0; i < length; ++i) {
        const double angle = 2 * std::numbers::pi * 220 * i / rate;
        utterance[static_cast<std::size_t>(i)] = static_cast<float>(0.3 * std::cos(angle));
    }
    if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO) != 0) return 1;
    SDL_AudioSpec wanted{};
    wanted.freq = rate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(count > 1 ? std::atoi(arguments[1]) : 256);
    wanted.callback = Fill;
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    SDL_PauseAudioDevice(device, 0);
    SDL_Window* window = SDL_CreateWindow("Reference", 0, 0, 800, 450, SDL_WINDOW_SHOWN);
    if (device == 0 || window == nullptr) return 1;
    SDL_StopTextInput();
    while (SDL_WaitEvent(nullptr) == 1) {
        SDL_Event event;
        while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1) {
            if (event.type == SDL_QUIT) return 0;
            if (event.type == SDL_KEYDOWN)
                position = event.key.keysym.sym == SDLK_ESCAPE ? length : 0;
        }
    }
}
