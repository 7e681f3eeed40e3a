// The library is never ended, since it hangs when it is readied again. One in which a thread hangs
// can't be used by another either: then a second copy is loaded, from the same file under another
// name, with a state of its own.
#include "audio/voice/espeak_library.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <mutex>
#include <string>

#include "linux/system/library_function.h"

/// The library connects to the sound server when it is readied, though it is to give us samples
/// only, and a server that hangs would hold it up. It finds this function, which every program with
/// a voice exports, before that of its sound library, and goes on without.
extern "C" [[gnu::visibility("default")]] void* create_audio_device_object(
    const char* /*device*/, const char* /*application*/, const char* /*description*/) {
    return nullptr;
}

namespace tamlo {
namespace {

constexpr const char* library_name = "libespeak-ng.so.1";
constexpr int chunk_milliseconds = 20;
constexpr std::size_t most_copies = 8;

struct Copy {
    EspeakLibrary library;
    bool loaded = false;
    bool held = false;
};

std::mutex copies_mutex;
std::array<Copy, most_copies> copies;

/// The file of a loaded library, loaded again. It is copied into memory, since the loader takes
/// the same file for the same library; the copy stays open, since the loader knows it by its
/// number.
void* LoadAgain(void* loaded) {
    link_map* map = nullptr;
    if (loaded == nullptr || dlinfo(loaded, RTLD_DI_LINKMAP, static_cast<void*>(&map)) != 0)
        return nullptr;
    const int file = open(map->l_name, O_RDONLY | O_CLOEXEC);
    const int memory = memfd_create("espeak", MFD_CLOEXEC);
    struct stat about {};
    bool copied = file >= 0 && memory >= 0 && fstat(file, &about) == 0;
    while (copied && about.st_size > 0) {
        const ssize_t sent =
            sendfile(memory, file, nullptr, static_cast<std::size_t>(about.st_size));
        copied = sent > 0;
        about.st_size -= sent;
    }
    if (file >= 0) close(file);
    if (!copied) return nullptr;
    return dlopen(("/proc/self/fd/" + std::to_string(memory)).c_str(), RTLD_NOW | RTLD_LOCAL);
}

bool FindAll(void* handle, EspeakLibrary& library) {
    return FindFunction(handle, "espeak_Initialize", library.Initialize) &&
           FindFunction(handle, "espeak_Info", library.Info) &&
           FindFunction(handle, "espeak_SetVoiceByName", library.SetVoiceByName) &&
           FindFunction(handle, "espeak_SetParameter", library.SetParameter) &&
           FindFunction(handle, "espeak_SetSynthCallback", library.SetSynthCallback) &&
           FindFunction(handle, "espeak_Synth", library.Synth) &&
           FindFunction(handle, "espeak_Char", library.Char) &&
           FindFunction(handle, "espeak_TextToPhonemes", library.TextToPhonemes);
}

bool Load(Copy& copy) {
    // Not for everyone: what one copy looks up must be found in itself, not in the first.
    void* const first = dlopen(library_name, RTLD_NOW | RTLD_LOCAL);
    void* const handle = &copy == &copies.front() ? first : LoadAgain(first);
    if (handle == nullptr || !FindAll(handle, copy.library)) return false;
    copy.loaded = true;
    return true;
}

void GiveBack(const EspeakLibrary* library) {
    const std::lock_guard lock(copies_mutex);
    for (Copy& copy : copies) {
        if (&copy.library == library) copy.held = false;
    }
}

EspeakLibrary* Hold() {
    const std::lock_guard lock(copies_mutex);
    for (Copy& copy : copies) {
        if (copy.held) continue;
        if (!copy.loaded && !Load(copy)) return nullptr;
        copy.held = true;
        return &copy.library;
    }
    return nullptr;
}

}  // namespace

HeldEspeak TakeEspeakLibrary() {
    HeldEspeak library(Hold(), GiveBack);
    // Outside the lock: this reads files, which can hang. Without the option the library ends the
    // process when its data is missing; with it, it returns 0 rather than the promised -1.
    if (library && library->rate == 0) {
        const int rate = library->Initialize(AUDIO_OUTPUT_SYNCHRONOUS, chunk_milliseconds, nullptr,
                                             espeakINITIALIZE_DONT_EXIT);
        library->rate = rate > 0 ? rate : -1;
    }
    return library;
}

}  // namespace tamlo
