#include "web/page/page_events.h"

#include <chrono>
#include <cmath>
#include <cstring>

#include "services/end_of_process.h"
#include "web/page/page_calls.h"

namespace tamlo {

void PageEvents::ShowWindow(const char* caption) {
    tamlo_page_title(::strdup(caption));
}

void PageEvents::Turn(KeyListener& listener, double rest) {
    Pump();
    if (!Waits() && rest > 0) {
        if (std::isinf(rest)) {
            bell_.Sleep();
        } else {
            const std::chrono::duration<double> time(rest);
            bell_.SleepFor(std::chrono::duration_cast<std::chrono::microseconds>(time));
        }
        Pump();
    }
    if (look_) look_();
    while (Waits()) {
        const Key key = keys_[out_ % most_held];
        ++out_;
        listener.Form_KeyDown(key.code, key.modifiers);
    }
}

void PageEvents::Pump() const {
    if (closed_) throw EndOfProcess{};
}

void PageEvents::Press(int code, int modifiers) noexcept {
    const unsigned in = in_.load(std::memory_order_relaxed);
    if (in - out_ >= most_held) return;
    keys_[in % most_held] = {code, modifiers};
    in_.store(in + 1, std::memory_order_release);
    bell_.Ring();
}

void PageEvents::Close() noexcept {
    closed_ = true;
    bell_.Ring();
}

}  // namespace tamlo
