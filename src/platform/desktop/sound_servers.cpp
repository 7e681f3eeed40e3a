// Looks for a PipeWire server's socket, and for ALSA's error handler.
#include "platform/desktop/sound_servers.h"

#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace tamlo {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::string PipeWireSocket() {
    std::string name = Variable("PIPEWIRE_REMOTE");
    if (name.empty()) name = "pipewire-0";
    if (name.front() == '/') return name;
    std::string folder = Variable("PIPEWIRE_RUNTIME_DIR");
    if (folder.empty()) folder = Variable("XDG_RUNTIME_DIR");
    return folder.empty() ? "" : folder + "/" + name;
}

bool SomebodyListens(const std::string& socket_path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socket_path.empty() || socket_path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, socket_path.c_str(), socket_path.size() + 1);
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (handle < 0) return false;
    const bool connected =
        connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(handle);
    return connected;
}

void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                const char* /*format*/, ...) {}

}  // namespace

std::vector<std::string> SoundDrivers() {
    // An empty name has the audio library read the variable itself.
    if (!Variable("SDL_AUDIODRIVER").empty()) return {""};
    std::vector<std::string> drivers;
    if (SomebodyListens(PipeWireSocket())) drivers.emplace_back("pipewire");
    drivers.emplace_back("pulseaudio");
    drivers.emplace_back("alsa");
    return drivers;
}

void KeepAlsaQuiet() {
    using SetHandler = int (*)(decltype(&SayNothing));
    // Already in the process if the audio library uses it at all; never closed again.
    void* library = dlopen("libasound.so.2", RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr) return;
    const auto set_handler =
        reinterpret_cast<SetHandler>(dlsym(library, "snd_lib_error_set_handler"));
    if (set_handler != nullptr) set_handler(SayNothing);
}

}  // namespace tamlo
