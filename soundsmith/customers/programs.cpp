// A program's run: its environment, its output, its end.
#include "customers/programs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <system_error>

namespace tamlo::soundsmith {

namespace {

/// Closes on every way out.
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

std::vector<char*> Pointers(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Starts the command under `timeout`, so that a program that hangs doesn't stop the build.
pid_t Start(const std::vector<std::string>& command, const ScratchFolder& scratch, int output) {
    std::vector<std::string> words{"timeout", "120"};
    words.insert(words.end(), command.begin(), command.end());
    const char* path = std::getenv("PATH");
    std::vector<std::string> settings{std::string("PATH=") + (path ? path : "/usr/bin:/bin"),
                                      "HOME=" + scratch.Path().string(), "LC_ALL=C"};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int failure = posix_spawnp(&process, "timeout", &actions, nullptr, Pointers(words).data(),
                                     Pointers(settings).data());
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

}  // namespace

ScratchFolder::ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "soundsmith-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("cannot make a temporary folder");
    path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string RunProgram(const std::vector<std::string>& command, const ScratchFolder& scratch) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
    const Descriptor reading(ends[0]);
    pid_t process;
    {
        const Descriptor writing(ends[1]);
        process = Start(command, scratch, writing.Number());
    }
    std::string bytes = ReadAll(reading.Number());
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(command[0] + " failed");
    return bytes;
}

}  // namespace tamlo::soundsmith
