// The host's loop, and the loop of a speaker.
#include "linux/voice/voice_host.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <map>

#include "linux/voice/speaker_messages.h"

namespace tamlo {
namespace {

/// What a family may take beside what it starts with: damaged data must not fill the machine.
constexpr rlim_t most_memory = 1024UL * 1024 * 1024;

struct Order {
    enum class Kind { start, kill };
    Kind kind = Kind::start;
    int number = 0;
    int family = 0;
};

/// Room for one descriptor beside a message.
union DescriptorRoom {
    char bytes[CMSG_SPACE(sizeof(int))];
    cmsghdr aligned;
};

/// Sends an order, with a descriptor unless that is negative.
bool SendOrder(int control, Order order, int descriptor) {
    iovec content = {&order, sizeof order};
    DescriptorRoom room = {};
    msghdr message = {};
    message.msg_iov = &content;
    message.msg_iovlen = 1;
    if (descriptor >= 0) {
        message.msg_control = room.bytes;
        message.msg_controllen = sizeof room.bytes;
        cmsghdr* const header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(sizeof descriptor);
        std::memcpy(CMSG_DATA(header), &descriptor, sizeof descriptor);
    }
    return ::sendmsg(control, &message, MSG_NOSIGNAL) == static_cast<ssize_t>(sizeof order);
}

bool ReceiveOrder(int control, Order& order, Descriptor& descriptor) {
    iovec content = {&order, sizeof order};
    DescriptorRoom room = {};
    msghdr message = {};
    message.msg_iov = &content;
    message.msg_iovlen = 1;
    message.msg_control = room.bytes;
    message.msg_controllen = sizeof room.bytes;
    ssize_t size = 0;
    do {
        size = ::recvmsg(control, &message, MSG_CMSG_CLOEXEC);
    } while (size < 0 && errno == EINTR);
    if (size != static_cast<ssize_t>(sizeof order)) return false;
    if (const cmsghdr* const header = CMSG_FIRSTHDR(&message); header != nullptr) {
        int number = -1;
        std::memcpy(&number, CMSG_DATA(header), sizeof number);
        descriptor = Descriptor(number);
    }
    return true;
}

/// Leaves the terminal, the files and the signals of the game to the game.
void BecomeSeparate(pid_t parent, int kept) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(0);
    ::setsid();
    // The notes of a crash, and a picture of the memory, are for the game's own.
    ::prctl(PR_SET_DUMPABLE, 0);
    for (int signal = 1; signal < NSIG; ++signal) ::signal(signal, SIG_DFL);
    ::signal(SIGPIPE, SIG_IGN);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    // What the libraries print, a screen reader would read.
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (nowhere >= 0 && kept != stream) ::dup2(nowhere, stream);
    }
    const auto own = static_cast<unsigned>(kept);
    if (own > 3) ::close_range(3, own - 1, 0);
    ::close_range(std::max(own, 2U) + 1, ~0U, 0);
}

void LimitMemory() {
    unsigned long pages = 0;
    std::FILE* const own = std::fopen("/proc/self/statm", "re");
    if (own == nullptr) return;
    if (std::fscanf(own, "%lu", &pages) == 1) {
        const rlim_t now = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
        const rlimit limit = {now + most_memory, now + most_memory};
        ::setrlimit(RLIMIT_AS, &limit);
    }
    std::fclose(own);
}

void SpeakText(int socket, Synthesizer& engine, const SpeakerMessage& request,
               const std::vector<char>& text) {
    SpeakerMessage answer = {SpeakerMessage::Kind::samples, request.number, 0, 0};
    engine.Synthesize({{text.begin(), text.end()}, request.rate, request.voice},
                      [&](std::span<const std::int16_t> samples) {
                          // Any message means that this text is no longer wanted.
                          return !CanReceive(socket, 0) &&
                                 SendMessage(socket, answer, samples.data(), samples.size_bytes());
                      });
    answer.kind = SpeakerMessage::Kind::done;
    SendMessage(socket, answer, nullptr, 0);
}

[[noreturn]] void BeSpeaker(int socket, const SynthesizerMaker& make) {
    using Kind = SpeakerMessage::Kind;
    LimitMemory();
    const auto engine = make();
    std::vector<std::int32_t> rates(static_cast<std::size_t>(std::max(engine->Open(), 0)));
    for (std::size_t i = 0; i < rates.size(); ++i) rates[i] = engine->Rate(static_cast<int>(i));
    SendMessage(socket, {Kind::opened, 0, 0, 0}, rates.data(), rates.size() * sizeof rates[0]);
    SpeakerMessage request;
    std::vector<char> content;
    while (ReceiveMessage(socket, request, content)) {
        if (request.voice < 0 || request.voice >= static_cast<int>(rates.size())) continue;
        if (request.kind == Kind::speak) SpeakText(socket, *engine, request, content);
        if (request.kind == Kind::prepare) engine->Prepare(request.voice);
    }
    ::_exit(0);
}

/// Takes orders until the game has gone. Speakers are waited for only once they have been killed,
/// so that their numbers are not given to other processes before.
[[noreturn]] void BeHost(int control, const std::vector<SynthesizerMaker>& makers) {
    std::map<int, pid_t> speakers;
    std::vector<pid_t> killed;
    const pid_t self = ::getpid();
    Order order;
    while (true) {
        Descriptor socket;
        if (!ReceiveOrder(control, order, socket)) ::_exit(0);
        std::erase_if(killed, [](pid_t one) { return ::waitpid(one, nullptr, WNOHANG) != 0; });
        if (order.kind == Order::Kind::start && socket) {
            const pid_t speaker = ::fork();
            if (speaker == 0) {
                BecomeSeparate(self, socket.Number());
                BeSpeaker(socket.Number(), makers.at(static_cast<std::size_t>(order.family)));
            }
            if (speaker > 0) speakers[order.number] = speaker;
        } else if (const auto known = speakers.find(order.number); known != speakers.end()) {
            ::kill(known->second, SIGKILL);
            killed.push_back(known->second);  // one that waits for a disk dies later
            speakers.erase(known);
        }
    }
}

}  // namespace

VoiceHost::VoiceHost(const std::vector<SynthesizerMaker>& makers) {
    int ends[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return;
    control_ = Descriptor(ends[0]);
    const Descriptor other(ends[1]);
    const pid_t parent = ::getpid();
    process_ = ::fork();
    if (process_ == 0) {
        BecomeSeparate(parent, other.Number());
        BeHost(other.Number(), makers);
    }
    if (process_ < 0) control_.Close();
}

VoiceHost::~VoiceHost() {
    if (process_ < 0) return;
    ::kill(process_, SIGKILL);  // and its speakers with it
    ::waitpid(process_, nullptr, 0);
}

bool VoiceHost::Running() {
    const std::lock_guard lock(mutex_);
    return control_ && !CanReceive(control_.Number(), 0);
}

VoiceHost::Speaker VoiceHost::Start(int family) {
    int ends[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return {};
    Descriptor own(ends[0]);
    const Descriptor other(ends[1]);
    const std::lock_guard lock(mutex_);
    const Order order = {Order::Kind::start, ++last_number_, family};
    if (!control_ || !SendOrder(control_.Number(), order, other.Number())) return {};
    return {std::move(own), order.number};
}

void VoiceHost::Kill(int number) {
    const std::lock_guard lock(mutex_);
    if (control_) SendOrder(control_.Number(), {Order::Kind::kill, number, 0}, -1);
}

}  // namespace tamlo
