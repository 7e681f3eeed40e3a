// Starting programs by posix_spawn, with argument lists and a clean state.
#include "linux/system/programs.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <pthread.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <optional>
#include <thread>

#include "linux/system/safe_write.h"
#include "services/thread.h"

namespace tamlo {
namespace {

std::vector<char*> ArgumentPointers(const std::vector<std::string>& arguments) {
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// How a program is to be started, as the system wants it.
class SpawnSettings {
  public:
    SpawnSettings() {
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawn_file_actions_init(&actions_);
        // Signals that this program handles, ignores or holds back are as usual for the other.
        sigset_t defaults;
        ::sigfillset(&defaults);
        sigset_t unblocked;
        ::sigemptyset(&unblocked);
        ::posix_spawnattr_setsigdefault(&attributes_, &defaults);
        ::posix_spawnattr_setsigmask(&attributes_, &unblocked);
        Flag(POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, 3);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    void OwnSession() { Flag(POSIX_SPAWN_SETSID); }

    void Quiet() {
        ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
    }

    std::optional<pid_t> Spawn(const std::vector<std::string>& arguments) {
        if (arguments.empty() || arguments.front().empty()) return std::nullopt;
        const std::vector<char*> pointers = ArgumentPointers(arguments);
        pid_t child = 0;
        const int failure = ::posix_spawnp(&child, pointers.front(), &actions_, &attributes_,
                                           pointers.data(), environ);
        return failure == 0 ? std::optional(child) : std::nullopt;
    }

  private:
    void Flag(int flag) {
        flags_ = static_cast<short>(flags_ | flag);
        ::posix_spawnattr_setflags(&attributes_, flags_);
    }

    posix_spawnattr_t attributes_ = {};
    posix_spawn_file_actions_t actions_ = {};
    short flags_ = 0;
};

void AwaitEnd(pid_t child) {
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// Takes note of the child's end whenever it comes, so that it does not stay as a zombie.
void AwaitEndAside(pid_t child) {
    std::thread waiting = StartThread([child] { AwaitEnd(child); });
    // Without it the child runs all the same; the system clears it away when this program ends.
    if (waiting.joinable()) waiting.detach();
}

/// Sets a signal's treatment for a while.
class SignalFor {
  public:
    SignalFor(int signal, void (*treatment)(int)) : signal_(signal) {
        struct sigaction action = {};
        action.sa_handler = treatment;
        ::sigaction(signal_, &action, &before_);
    }
    SignalFor(const SignalFor&) = delete;
    SignalFor& operator=(const SignalFor&) = delete;
    ~SignalFor() { ::sigaction(signal_, &before_, nullptr); }

  private:
    int signal_;
    struct sigaction before_ = {};
};

}  // namespace

bool StartProgram(const std::vector<std::string>& arguments, StartAs as) {
    SpawnSettings settings;
    settings.OwnSession();
    if (as == StartAs::quiet) settings.Quiet();
    const std::optional<pid_t> child = settings.Spawn(arguments);
    if (child) AwaitEndAside(*child);
    return child.has_value();
}

bool RunInTerminal(const std::vector<std::string>& arguments) {
    // Both belong to the terminal's foreground group, so the player's interrupt reaches both. A
    // stop is meant for both: the shell brings them back together.
    const SignalFor interrupt(SIGINT, SIG_IGN);
    const SignalFor quit(SIGQUIT, SIG_IGN);
    const SignalFor stop(SIGTSTP, SIG_DFL);
    const std::optional<pid_t> child = SpawnSettings().Spawn(arguments);
    if (child) AwaitEnd(*child);
    return child.has_value();
}

std::string ProgramPath() {
    char path[4096];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0 || length == static_cast<ssize_t>(sizeof path)) return "";
    return {path, static_cast<std::size_t>(length)};
}

std::string ProgramFolder() {
    return FolderOf(ProgramPath());
}

void RestartProgram() {
    const std::vector<std::string> arguments = {ProgramPath()};
    const std::vector<char*> pointers = ArgumentPointers(arguments);
    ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
    sigset_t none;
    ::sigemptyset(&none);
    ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
    // By this name the very same program runs, even if its file has been replaced meanwhile.
    ::execv("/proc/self/exe", pointers.data());
}

}  // namespace tamlo
