// Preloaded into a program that plays through SDL, libpulse or libpipewire, stamps what happens
// inside it, and lays a steady marker under its sound: -66 dB at half the sampling rate, so that
// nothing but a drop-out is ever entirely silent in a recording. The program itself is the one that
// players have.
#include <SDL2/SDL.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pipewire/stream.h>
#include <pulse/stream.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

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

using Find = void*(void*, const char*);

/// The dlsym that this library hides.
Find* RealDlsym() {
    static auto* const find = reinterpret_cast<Find*>(dlvsym(RTLD_NEXT, "dlsym", "GLIBC_2.34"));
    return find;
}

template <typename Function>
Function* Next(const char* name, Function* /*own*/) {
    return reinterpret_cast<Function*>(RealDlsym()(RTLD_NEXT, name));
}

constexpr int frame_bytes = 2 * sizeof(float);

/// Marks a block; its first audible frame, -1 if there is none.
int Mark(float* samples, int frames) {
    int first = -1;
    for (int frame = 0; frame < frames; ++frame) {
        const float level =
            std::max(std::abs(samples[2 * frame]), std::abs(samples[2 * frame + 1]));
        if (first < 0 && level > audible) first = frame;
        const float mark = frame % 2 == 0 ? marker : -marker;
        samples[2 * frame] += mark;
        samples[2 * frame + 1] += mark;
    }
    return first;
}

SDL_AudioCallback fill = nullptr;  ///< null in a program that uses libpulse itself

void FillAndMark(void* user, Uint8* bytes, int count) {
    const std::int64_t begin = Now();
    fill(user, bytes, count);
    Note(begin, StampKind::block, Mark(reinterpret_cast<float*>(bytes), count / frame_bytes));
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

extern "C" int pa_stream_connect_playback(pa_stream* stream, const char* device,
                                          const pa_buffer_attr* sizes, pa_stream_flags_t flags,
                                          const pa_cvolume* volume, pa_stream* partner) {
    static auto* const connect = Next("pa_stream_connect_playback", pa_stream_connect_playback);
    if (fill == nullptr) {
        Note(Now(), StampKind::device, static_cast<int>(sizes->minreq) / frame_bytes);
    }
    return connect(stream, device, sizes, flags, volume, partner);
}

extern "C" int pa_stream_write(pa_stream* stream, const void* bytes, std::size_t count,
                               pa_free_cb_t release, std::int64_t offset, pa_seek_mode_t seek) {
    static auto* const write_on = Next("pa_stream_write", pa_stream_write);
    if (fill != nullptr) return write_on(stream, bytes, count, release, offset, seek);
    const std::int64_t begin = Now();
    const auto* samples = static_cast<const float*>(bytes);
    std::vector<float> marked(samples, samples + count / sizeof(float));
    Note(begin, StampKind::block, Mark(marked.data(), static_cast<int>(count) / frame_bytes));
    if (release != nullptr) release(const_cast<void*>(bytes));
    return write_on(stream, marked.data(), count, nullptr, offset, seek);
}

namespace tamlo::latency {
namespace {

decltype(pw_stream_queue_buffer)* queue_buffer = nullptr;
int frames_of_block = 0;

/// In place of the library's own: the program has loaded it, so no name hides another.
int QueueMarked(pw_stream* stream, pw_buffer* buffer) {
    const std::int64_t begin = Now();
    spa_data& data = buffer->buffer->datas[0];
    const int frames = static_cast<int>(data.chunk->size) / frame_bytes;
    if (frames != frames_of_block) Note(begin, StampKind::device, frames);
    frames_of_block = frames;
    Note(begin, StampKind::block, Mark(static_cast<float*>(data.data), frames));
    return queue_buffer(stream, buffer);
}

}  // namespace
}  // namespace tamlo::latency

extern "C" void* dlsym(void* library, const char* name) noexcept {
    void* const found = RealDlsym()(library, name);
    if (found == nullptr || std::strcmp(name, "pw_stream_queue_buffer") != 0) return found;
    queue_buffer = reinterpret_cast<decltype(queue_buffer)>(found);
    return reinterpret_cast<void*>(QueueMarked);
}
