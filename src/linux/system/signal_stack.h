// A stack for the handlers of faults.
#pragma once

#include <csignal>
#include <memory>

namespace tamlo {

/// From now on this thread can report a fault although its stack is full.
inline void UseSignalStack() {
    constexpr std::size_t size = 65536;
    thread_local const std::unique_ptr<char[]> room(new char[size]);
    stack_t stack = {};
    // A sanitizer's own stack is left alone.
    if (::sigaltstack(nullptr, &stack) != 0 || (stack.ss_flags & SS_DISABLE) == 0) return;
    stack = {};
    stack.ss_sp = room.get();
    stack.ss_size = size;
    ::sigaltstack(&stack, nullptr);
}

}  // namespace tamlo
