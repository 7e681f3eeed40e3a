// What a voice family's process and its user tell each other, over a socket that keeps the bounds
// of messages.
#pragma once

#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace tamlo {

/// Begins every message. What follows it depends on the kind.
struct SpeakerMessage {
    enum class Kind : std::int32_t {
        speak,    ///< to the speaker; the text follows
        prepare,  ///< to the speaker: make the voice ready
        stop,     ///< to the speaker: break the text off
        opened,   ///< from it, once, unasked: the samples a second of each voice, as int32, follow
        samples,  ///< from it: samples of text `number` follow, as int16
        done,     ///< from it: text `number` is over
    };
    Kind kind = Kind::stop;
    std::int32_t number = 0;  ///< of the text
    std::int32_t rate = 0;
    std::int32_t voice = 0;
};

/// The longest text or piece of samples in one message, in bytes.
inline constexpr std::size_t longest_message = 65536;

/// Sends in one piece; waits while the socket is full. False if the other side has gone.
inline bool SendMessage(int socket, const SpeakerMessage& message, const void* content,
                        std::size_t size) {
    std::vector<char> bytes(sizeof message + size);
    std::memcpy(bytes.data(), &message, sizeof message);
    if (size > 0) std::memcpy(bytes.data() + sizeof message, content, size);
    ssize_t sent = 0;
    do {
        sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(bytes.size());
}

/// Waits for a message; its content goes to `content`. False if the other side has gone.
inline bool ReceiveMessage(int socket, SpeakerMessage& message, std::vector<char>& content) {
    content.resize(sizeof message + longest_message);
    ssize_t size = 0;
    do {
        size = ::recv(socket, content.data(), content.size(), 0);
    } while (size < 0 && errno == EINTR);
    if (size < static_cast<ssize_t>(sizeof message)) return false;
    std::memcpy(&message, content.data(), sizeof message);
    content.resize(static_cast<std::size_t>(size));
    content.erase(content.begin(), content.begin() + sizeof message);
    return true;
}

/// Whether something can be received, the end included, within so many milliseconds.
inline bool CanReceive(int socket, int milliseconds) {
    pollfd waited = {socket, POLLIN, 0};
    return ::poll(&waited, 1, milliseconds) > 0;
}

}  // namespace tamlo
