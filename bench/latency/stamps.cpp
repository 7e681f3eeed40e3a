// Preloaded into a program that plays through SDL, stamps what happens inside it, and lays a steady
// marker under its sound: -66 dB at half the sampling rate, so that nothing but a drop-out is ever
// entirely silent in a recording. The program itself is the one that players have.
#include <SDL2/SDL.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "stamps.h"

namespace tamlo::latency {
namespace {

constexpr float marker = 0.0005F;
constexpr float audible = 0.00316F;  // -50 dB

StampFile* OpenStamps() {
    const char* path = std::getenv("TAMLO_STAMPS");
    const int file = path == nullptr ? -1 : open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0 || ftruncate(file, sizeof(StampFile)) != 0) return nullptr;
    void* memory = mmap(nullptr, sizeof(StampFile), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    return memory == MAP_FAILED ? nullptr : static_cast<StampFile*>(memory);
}

StampFile* const stamp_file = OpenStamps();

std::int64_t Now() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

/// A reader takes the count for complete stamps; so few are made at once that it may.
void Note(std::int64_t time, StampKind kind, int value) {
    if (stamp_file == nullptr) return;
    const std::uint64_t place = stamp_file->count.load() % most_stamps;
    stamp_file->stamps[place] = {time, kind, value};
    ++stamp_file->count;
}

template <typename Function>
Function* Next(const char* name, Function* /*own*/) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

SDL_AudioCallback fill = nullptr;

void FillAndMark(void* user, Uint8* bytes, int count) {
    const std::int64_t begin = Now();
    fill(user, bytes, count);
    auto* samples = reinterpret_cast<float*>(bytes);
    const int frames = count / static_cast<int>(2 * sizeof(float));
    int first = -1;
    for (int frame = 0; frame < frames; ++frame) {
        const float level =
            std::max(std::abs(samples[2 * frame]), std::abs(samples[2 * frame + 1]));
        if (first < 0 && level > audible) first = frame;
        const float mark = frame % 2 == 0 ? marker : -marker;
        samples[2 * frame] += mark;
        samples[2 * frame + 1] += mark;
    }
    Note(begin, StampKind::block, first);
}

}  // namespace
}  // namespace tamlo::latency

using namespace tamlo::latency;

extern "C" SDL_AudioDeviceID SDL_OpenAudioDevice(const char* device, int capture,
                                                 const SDL_AudioSpec* desired,
                                                 SDL_AudioSpec* obtained, int allowed_changes) {
    static auto* const open_device = Next("SDL_OpenAudioDevice", SDL_OpenAudioDevice);
    SDL_AudioSpec marked = *desired;
    fill = desired->callback;
    marked.callback = FillAndMark;
    const SDL_AudioDeviceID id = open_device(device, capture, &marked, obtained, allowed_changes);
    if (id != 0) Note(Now(), StampKind::device, desired->samples);
    return id;
}

extern "C" int SDL_PeepEvents(SDL_Event* events, int count, SDL_eventaction action, Uint32 from,
                              Uint32 to) {
    static auto* const peep = Next("SDL_PeepEvents", SDL_PeepEvents);
    const int found = peep(events, count, action, from, to);
    const bool taken = found == 1 && action == SDL_GETEVENT && events->type == SDL_KEYDOWN;
    if (taken) Note(Now(), StampKind::key, events->key.keysym.sym);
    return found;
}
