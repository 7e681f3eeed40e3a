// The handlers of signals that mean a fault, and of exceptions that nobody catches.
#include "linux/system/crash_notes.h"

#include <execinfo.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>
#include <typeinfo>

#include "linux/system/signal_stack.h"

namespace tamlo {
namespace {

constexpr int faults[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr int most_functions = 64;
// Looking for the functions may take a lock that the fault has left taken.
constexpr unsigned longest_search = 5;  // s

int notes = -1;

void Note(const char* text) {
    [[maybe_unused]] const ssize_t written = ::write(notes, text, std::strlen(text));
}

// May use nothing but plain memory and system calls, and what has been loaded before.
void NoteFunctions(int signal) {
    ::signal(SIGALRM, SIG_DFL);  // it may be ignored
    ::alarm(longest_search);
    void* functions[most_functions];
    ::backtrace_symbols_fd(functions, ::backtrace(functions, most_functions), notes);
    // The handler counts once only, so this time the signal does what it always does.
    ::raise(signal);
}

/// Its type, and its text as far as that can't name a file or quote anything of the player's.
void NoteOf(const std::exception& failure) {
    const std::string_view text = failure.what();
    const std::string own(text.substr(0, text.find_first_of("/\\\"'[<`")));
    Note((std::string(typeid(failure).name()) + ": " + own + "\n").c_str());
}

[[noreturn]] void NoteException() {
    try {
        if (std::current_exception()) throw;
    } catch (const std::exception& failure) {
        NoteOf(failure);
    } catch (...) {
        Note("An exception of an unknown kind.\n");
    }
    std::abort();
}

}  // namespace

void LeaveCrashNotesIn(int descriptor) {
    notes = descriptor;
    UseSignalStack();
    void* unused[1];
    ::backtrace(unused, 1);  // loads what the handler needs
    std::set_terminate(NoteException);
    for (const int signal : faults) {
        struct sigaction action = {};
        ::sigaction(signal, nullptr, &action);
        if (action.sa_handler != SIG_DFL) continue;
        action.sa_handler = NoteFunctions;
        action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER | SA_ONSTACK);
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace tamlo
