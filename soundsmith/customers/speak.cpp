// Runs customer_voice, the program beside soundsmith that holds the speech engines.
#include "customers/speak.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

extern char** environ;

namespace tamlo::soundsmith {

namespace {

// Closes on every way out.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(number_); }
    int Number() const { return number_; }

  private:
    int number_;
};

pid_t Start(std::vector<std::string> command, int output) {
    std::vector<char*> arguments;
    for (std::string& word : command) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t process = -1;
    const int failure =
        posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error(command[0] + ": " + std::strerror(failure));
    return process;
}

std::string ReadAll(int descriptor) {
    std::string bytes;
    std::array<char, 65536> chunk;
    for (;;) {
        const ssize_t count = read(descriptor, chunk.data(), chunk.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return bytes;
        bytes.append(chunk.data(), static_cast<std::size_t>(count));
    }
}

std::string OutputOf(const std::vector<std::string>& command) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
    const Descriptor reading(ends[0]);
    pid_t process;
    {
        const Descriptor writing(ends[1]);
        process = Start(command, writing.Number());
    }
    const std::string bytes = ReadAll(reading.Number());
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("the voice " + command[2] + " failed");
    return bytes;
}

}  // namespace

Sound Speak(const Customer& customer) {
    const std::string bytes =
        OutputOf({CUSTOMER_VOICE, std::string(customer.engine), std::string(customer.voice),
                  std::to_string(customer.pitch), std::to_string(customer.pace),
                  std::string(customer.greeting)});
    std::int32_t rate = 0;  // the output: the rate, then 16-bit samples
    if (bytes.size() <= sizeof rate) throw std::runtime_error("the voice said nothing");
    std::memcpy(&rate, bytes.data(), sizeof rate);
    Sound sound{rate, {}, false};
    for (std::size_t i = sizeof rate; i + 2 <= bytes.size(); i += 2) {
        std::int16_t sample;
        std::memcpy(&sample, bytes.data() + i, sizeof sample);
        sound.samples.push_back(sample / 32768.0);
    }
    return sound;
}

}  // namespace tamlo::soundsmith
