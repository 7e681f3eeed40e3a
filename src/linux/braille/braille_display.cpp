// The display's thread, and the mailbox between it and the game's.
#include "reading/braille_display.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

#include "linux/braille/brlapi_keys.h"
#include "linux/braille/brlapi_library.h"
#include "linux/system/descriptor.h"
#include "reading/braille_reading.h"
#include "services/thread.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds pause_between_tries = 3s;
/// Each refusal doubles the pause: it may last, and BRLTTY writes it into its log; but a BRLTTY
/// that has just been started lets nobody in for a moment.
constexpr std::chrono::milliseconds longest_pause = 60s;
constexpr auto pause_between_keys = 60ms;  // a turn of the game keeps only the last key
constexpr auto patience = 300ms;           // of the game with the display

}  // namespace

/// What both threads see. The bell is rung for everything that is new in it.
struct BrailleDisplay::Mailbox {
    explicit Mailbox(Plan wishes) : plan(std::move(wishes)) {}

    const Plan plan;
    const Descriptor bell{::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)};

    std::mutex mutex;
    std::condition_variable changed;  ///< `entered` or `ended`
    std::deque<std::string> lines;    ///< not yet taken
    bool focused = true;
    bool closed = false;   ///< the game wants no more of it
    bool entered = false;  ///< the display is the game's
    bool ended = false;    ///< the thread has gone

    void Ring() {
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t rung = ::write(bell.Number(), &one, sizeof one);
    }
    void Press(int code) {
        const std::lock_guard lock(mutex);
        if (!closed) plan.press(code);
    }
    void End() {
        const std::lock_guard lock(mutex);
        ended = true;
        changed.notify_all();
    }
    void SetEntered(bool now) {
        const std::lock_guard lock(mutex);
        entered = now;
        changed.notify_all();
    }
};

/// The thread's own world.
class BrailleDisplay::Reader {
  public:
    Reader(Mailbox& box, const BrlapiLibrary& library) : box_(box), library_(library) {}

    void Run() {
        auto pause = pause_between_tries;
        while (TakeNews()) {
            const bool refused = !ServeOnce();
            if (!refused) pause = pause_between_tries;
            Rest(pause);
            if (refused) pause = std::min(2 * pause, longest_pause);
        }
    }

  private:
    /// Whether the display is the game's, known to the game as well; not any more at its end.
    class Holding {
      public:
        explicit Holding(Mailbox& box) : box_(box) {}
        Holding(const Holding&) = delete;
        Holding& operator=(const Holding&) = delete;
        ~Holding() { Set(false); }

        bool Now() const { return now_; }
        void Set(bool now) {
            now_ = now;
            box_.SetEntered(now);
        }

      private:
        Mailbox& box_;
        bool now_ = false;
    };

    /// Waits before the next try; lines go on to be taken.
    void Rest(std::chrono::milliseconds pause) {
        using Clock = std::chrono::steady_clock;
        const auto next_try = Clock::now() + pause;
        while (Clock::now() < next_try && TakeNews()) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(next_try - Clock::now());
            Sleep(-1, static_cast<int>(std::max(left, 0ms).count()));
        }
    }

    /// False if BRLTTY is there and says no.
    bool ServeOnce() {
        BrlapiConnection connection(library_);
        return Serve(connection) || !connection.Refused();
    }

    /// Until the connection is lost, or the game closes the mailbox. False if the display cannot be
    /// had.
    bool Serve(BrlapiConnection& connection) {
        if (!connection.Open()) return false;
        Holding held(box_);
        while (TakeNews()) {
            if (focused_ != held.Now()) {
                if (focused_ && !connection.Enter(box_.plan.window)) return false;
                if (!focused_) connection.Leave();
                held.Set(focused_);
                fresh_ = true;
            }
            if (held.Now()) {
                if (std::exchange(fresh_, false) && !Write(connection)) return true;
                // Keys that came together with an answer would wake nobody.
                if (!TakeKeys(connection)) return true;
                if (fresh_) continue;
            }
            const bool readable = Sleep(connection.Readable(), -1);
            if (readable && !held.Now()) return true;
        }
        return true;
    }

    bool Write(BrlapiConnection& connection) {
        unsigned columns = 0;
        unsigned rows = 0;
        if (!connection.Size(columns, rows)) return false;
        if (columns * rows == 0 || reading_.Empty()) return true;
        reading_.SetSize(columns, rows);
        return connection.Write(reading_.Page(), columns * rows);
    }

    bool TakeKeys(BrlapiConnection& connection) {
        for (;;) {
            std::optional<brlapi_keyCode_t> code;
            if (!connection.ReadKey(code)) return false;
            if (!code) return true;
            DealWith(MeaningOfKey(*code));
        }
    }

    void DealWith(const BrailleKey& key) {
        fresh_ = true;
        switch (key.act) {
            case BrailleKey::Act::forward: reading_.Forward(); break;
            case BrailleKey::Act::back: reading_.Back(); break;
            case BrailleKey::Act::newest: reading_.ToNewest(); break;
            default: break;
        }
        for (const int code : key.keys) {
            if (code != key.keys.front()) std::this_thread::sleep_for(pause_between_keys);
            box_.Press(code);
        }
    }

    /// Takes what is in the mailbox; false when it has been closed.
    bool TakeNews() {
        const std::lock_guard lock(box_.mutex);
        for (; !box_.lines.empty(); box_.lines.pop_front()) {
            reading_.Add(std::move(box_.lines.front()));
            fresh_ = true;
        }
        focused_ = box_.focused;
        return !box_.closed;
    }

    /// Until the bell rings, the other descriptor can be read, or the time, if not negative, is
    /// over. Whether the other can be read.
    bool Sleep(int descriptor, int milliseconds) {
        pollfd sources[] = {{box_.bell.Number(), POLLIN, 0}, {descriptor, POLLIN, 0}};
        ::poll(sources, 2, milliseconds);
        std::uint64_t rings = 0;
        [[maybe_unused]] const ssize_t taken = ::read(box_.bell.Number(), &rings, sizeof rings);
        return sources[1].revents != 0;
    }

    Mailbox& box_;
    const BrlapiLibrary& library_;
    BrailleReading reading_;
    bool focused_ = false;
    bool fresh_ = false;  ///< the display must be written again
};

BrailleDisplay::BrailleDisplay(Plan plan) : mailbox_(std::make_shared<Mailbox>(std::move(plan))) {
    std::thread thread = StartThread([box = mailbox_] {
        if (const auto library = LoadBrlapi()) Reader(*box, *library).Run();
        box->End();
    });
    if (thread.joinable()) {
        thread.detach();
    } else {
        mailbox_->End();
    }
}

BrailleDisplay::~BrailleDisplay() {
    std::unique_lock lock(mailbox_->mutex);
    mailbox_->closed = true;
    mailbox_->Ring();
    mailbox_->changed.wait_for(lock, patience, [this] { return mailbox_->ended; });
}

void BrailleDisplay::Show(const std::string& line) {
    const std::lock_guard lock(mailbox_->mutex);
    if (mailbox_->ended) return;
    mailbox_->lines.push_back(line);
    if (mailbox_->lines.size() > BrailleReading::lines_kept) mailbox_->lines.pop_front();
    mailbox_->Ring();
}

bool BrailleDisplay::AwaitDisplay(std::chrono::milliseconds longest,
                                  const std::function<void()>& pump) {
    constexpr auto between_looks = 20ms;
    const auto end = std::chrono::steady_clock::now() + longest;
    std::unique_lock lock(mailbox_->mutex);
    while (!mailbox_->entered && !mailbox_->ended && std::chrono::steady_clock::now() < end) {
        lock.unlock();
        pump();
        lock.lock();
        mailbox_->changed.wait_for(lock, between_looks);
    }
    return mailbox_->entered;
}

void BrailleDisplay::SetFocus(bool focused) {
    const std::lock_guard lock(mailbox_->mutex);
    mailbox_->focused = focused;
    mailbox_->Ring();
}

void BrailleDisplay::GiveBack() {
    SetFocus(false);
    std::unique_lock lock(mailbox_->mutex);
    mailbox_->changed.wait_for(lock, patience, [this] { return !mailbox_->entered; });
}

bool BrailleLibraryInstalled() {
    return LoadBrlapi().has_value();
}

}  // namespace tamlo
