// The keys of the page: its thread puts them in, the game's thread takes them out.
#pragma once

#include <array>
#include <atomic>
#include <functional>
#include <utility>

#include "services/events.h"
#include "services/wakeup.h"

namespace tamlo {

class PageEvents final : public Events {
  public:
    // On the game's thread.

    /// `look` is called in each turn, before the keys are handed out.
    void InEachTurn(std::function<void()> look) { look_ = std::move(look); }
    void ShowWindow(const char* caption) override;
    void Turn(KeyListener& listener, double rest) override;
    /// Takes no key; throws EndOfProcess as Turn does.
    void Pump() const;

    // On the page's thread; these never wait. Keys beyond those that are held are lost.
    void Press(int code, int modifiers) noexcept;
    /// Has the game end as if its window had been closed.
    void Close() noexcept;

  private:
    struct Key {
        int code = 0;
        int modifiers = 0;
    };
    static constexpr unsigned most_held = 64;

    bool Waits() const { return in_.load(std::memory_order_acquire) != out_; }

    std::function<void()> look_;
    std::array<Key, most_held> keys_{};
    std::atomic<unsigned> in_{0};
    std::atomic<unsigned> out_{0};
    std::atomic<bool> closed_{false};
    Wakeup bell_;
};

}  // namespace tamlo
