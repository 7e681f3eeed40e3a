// Asks whether a PipeWire server is there, and looks for ALSA's error handler.
#include "linux/sound/sound_servers.h"

#include <dlfcn.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
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

enum class Server { none, hangs, answers };

/// The first message of PipeWire's protocol, to which it answers at once: to object 0, number 1
/// with 24 bytes, a structure that holds the protocol's version as a number.
constexpr std::array<std::uint32_t, 10> hello{0, 1U << 24 | 24, 0, 0, 16, 14, 4, 4, 3, 0};
constexpr int longest_answer = 300;  // ms

bool Answers(int server) {
    pollfd answer{server, POLLIN, 0};
    return send(server, hello.data(), sizeof hello, MSG_NOSIGNAL) == sizeof hello &&
           poll(&answer, 1, longest_answer) == 1 && (answer.revents & POLLIN) != 0;
}

Server Ask(const std::string& socket_path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socket_path.empty() || socket_path.size() >= sizeof address.sun_path) return Server::none;
    std::memcpy(address.sun_path, socket_path.c_str(), socket_path.size() + 1);
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (handle < 0) return Server::none;
    Server server = Server::none;
    if (connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
        server = Answers(handle) ? Server::answers : Server::hangs;
    } else if (errno == EAGAIN) {
        server = Server::hangs;  // too many wait at its door
    }
    close(handle);
    return server;
}

void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                const char* /*format*/, ...) {}

}  // namespace

std::vector<std::string> SoundDrivers() {
    const std::string wanted = Variable("SDL_AUDIODRIVER");
    if (wanted == "pipewire" || wanted == "pulseaudio") return {wanted};
    // An empty name has the audio library read the variable itself.
    if (!wanted.empty()) return {""};
    switch (Ask(PipeWireSocket())) {
        case Server::none: return {"pulseaudio", "alsa"};
        case Server::answers: return {"pipewire", "pulseaudio", "alsa"};
        case Server::hangs: break;
    }
    return {};
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
