// The window on SDL2: one event queue, taken apart into keys and everything else.
#include "linux/window/desktop_window.h"

#include <SDL2/SDL.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>

#include "linux/window/display_faults.h"
#include "linux/window/end_signals.h"
#include "linux/window/keys.h"
#include "linux/window/paint_schedule.h"
#include "linux/window/window_painter.h"
#include "linux/window/x_window.h"
#include "services/end_of_process.h"
#include "services/key_codes.h"

namespace tamlo {

namespace {

constexpr const char* default_caption = " Tamlo Delivery ";
constexpr double longest_sleep = 0.25;  // s; a signal can slip in just before a sleep begins
constexpr Uint32 focus_echo = 5;        // ms
constexpr SDL_Rect usual_screen = {0, 0, 1000, 562};  // where the size of the screen is not told

/// Events that would only fill the queue while the game speaks and takes no turn.
constexpr Uint32 unwanted_events[] = {
    SDL_KEYUP,           SDL_TEXTEDITING, SDL_TEXTINPUT,  SDL_MOUSEMOTION, SDL_MOUSEBUTTONDOWN,
    SDL_MOUSEBUTTONUP,   SDL_MOUSEWHEEL,  SDL_FINGERDOWN, SDL_FINGERUP,    SDL_FINGERMOTION,
    SDL_CLIPBOARDUPDATE, SDL_DROPFILE,    SDL_DROPTEXT,   SDL_DROPBEGIN,   SDL_DROPCOMPLETE,
};

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// The displays to try. Left to itself the library takes one without keys when there is no other,
/// and complains on standard error on the way.
std::string DisplaysToTry() {
    std::string drivers = IsSet("DISPLAY") ? "x11" : "";
    if (IsSet("WAYLAND_DISPLAY")) drivers += drivers.empty() ? "wayland" : ",wayland";
    return drivers;
}

/// A key press with a code.
struct Key {
    int code = 0;
    int modifiers = 0;
    bool repeated = false;
};

KeyPress Describe(const SDL_KeyboardEvent& event) {
    return {event.keysym.scancode, event.keysym.sym, (event.keysym.mod & KMOD_NUM) != 0,
            (event.keysym.mod & KMOD_SHIFT) != 0};
}

/// 1 for Shift, 2 for Control, 4 for Alt, added up.
int ModifiersOf(const SDL_KeyboardEvent& event) {
    const int mod = event.keysym.mod;
    return ((mod & KMOD_SHIFT) != 0 ? 1 : 0) + ((mod & KMOD_CTRL) != 0 ? 2 : 0) +
           ((mod & KMOD_ALT) != 0 ? 4 : 0);
}

/// Large letters need room; the rest leaves the desktop in sight.
int FourFifths(int pixels) {
    return std::max(pixels * 4 / 5, 1);
}

/// Lines end with a carriage return, a line feed or both in what the game shows.
std::string WithLineFeeds(const std::string& text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        lines += text[i] == '\r' ? '\n' : text[i];
    }
    return lines;
}

}  // namespace

struct DesktopWindow::Impl {
    EndSignals signals;
    SDL_Window* window = nullptr;
    std::string shown_text;
    bool closed = false;
    bool lost = false;      ///< another program has destroyed the window
    Uint32 focused_at = 0;  ///< time of the last focus, as of key events
    WindowPainter painter;
    PaintSchedule schedule;
    std::function<void(bool)> tell_focus;

    ~Impl() {
        if (lost) return;
        if (window != nullptr) SDL_DestroyWindow(window);
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
    }

    void Paint() {
        if (shown_text.empty()) {
            painter.PaintLines(window);
        } else {
            painter.PaintMessage(window, shown_text);
        }
        schedule.Painted();
    }

    /// Paints the lines that are due; for how many milliseconds they have yet to wait.
    Uint64 PaintDueLines() {
        const bool shown = (SDL_GetWindowFlags(window) & SDL_WINDOW_SHOWN) != 0;
        if (!schedule.Unpainted() || !shown) return 0;
        const Uint64 wait = schedule.Wait(SDL_GetTicks64());
        if (wait == 0) Paint();
        return wait;
    }

    /// Waits for any event at most `seconds`, and takes none.
    void Sleep(double seconds) {
        const double sleep = std::clamp(seconds, 0.0, longest_sleep);
        auto milliseconds = static_cast<int>(std::ceil(sleep * 1000));
        if (const Uint64 pause = PaintDueLines()) {
            milliseconds = std::min(milliseconds, static_cast<int>(pause));
        }
        SDL_WaitEventTimeout(nullptr, milliseconds);
    }

    /// Takes in what the desktop has sent, and deals with all but the key presses.
    void TakeIn() {
        if (!closed && !lost) SDL_PumpEvents();
        SDL_Event event;
        while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_KEYDOWN - 1) > 0 ||
               SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_KEYDOWN + 1, SDL_USEREVENT - 1) > 0 ||
               SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_USEREVENT + 1, SDL_LASTEVENT) > 0) {
            if (event.type == SDL_QUIT) closed = true;
            if (event.type == SDL_WINDOWEVENT) DealWith(event.window);
        }
        if (closed || lost || signals.Arrived()) throw EndOfProcess{};
    }

    void DealWith(const SDL_WindowEvent& event) {
        switch (event.event) {
            case SDL_WINDOWEVENT_CLOSE: closed = true; break;
            case SDL_WINDOWEVENT_FOCUS_GAINED:
                focused_at = event.timestamp;
                if (tell_focus) tell_focus(true);
                break;
            case SDL_WINDOWEVENT_FOCUS_LOST:
                if (tell_focus) tell_focus(false);
                break;
            case SDL_WINDOWEVENT_EXPOSED:
            case SDL_WINDOWEVENT_SIZE_CHANGED: Paint(); break;
            default: break;
        }
    }

    /// The next queued key press, if there is one; those of the keyboard first.
    std::optional<Key> NextKey() {
        SDL_Event event;
        while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_KEYDOWN, SDL_KEYDOWN) > 0) {
            const int code = VirtualKeyCode(Describe(event.key));
            // A window that takes the focus is told of the modifiers held just then (the Alt of
            // Alt+Tab): nobody has pressed them for the game, and they must not cut its speech.
            const bool echo = IsModifier(code) && event.key.timestamp - focused_at <= focus_echo;
            if (code == 0 || (echo && focused_at != 0)) continue;
            return Key{code, ModifiersOf(event.key), event.key.repeat != 0};
        }
        if (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_USEREVENT, SDL_USEREVENT) > 0) {
            return Key{event.user.code};
        }
        return std::nullopt;
    }

    enum class Answer { none, again, close };

    /// What the queued keys answer to a message box; takes them all up to one that closes it. A key
    /// still held down from before the box is no answer.
    Answer TakeAnswer() {
        TakeIn();
        Answer answer = Answer::none;
        while (const auto key = NextKey()) {
            if (key->repeated) continue;
            if (keys::ClosesMessage(key->code)) return Answer::close;
            answer = Answer::again;
        }
        return answer;
    }

    bool DeliverKeys(KeyListener& listener) {
        bool any = false;
        while (const auto key = NextKey()) {
            any = true;
            schedule.KeyPressed(SDL_GetTicks64());
            listener.Form_KeyDown(key->code, key->modifiers);
        }
        return any;
    }
};

void DesktopWindow::Prepare() {
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");  // EndSignals does that, and better
    SDL_SetHint(SDL_HINT_APP_NAME, "Tamlo Delivery");
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // A driver named in the environment stands, whichever it is: its user wants just that.
    if (!IsSet("SDL_VIDEODRIVER")) {
        SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, DisplaysToTry().c_str(), SDL_HINT_OVERRIDE);
    }
}

std::unique_ptr<DesktopWindow> DesktopWindow::Open(std::string& why_not) {
    if (DisplaysToTry().empty() && !IsSet("SDL_VIDEODRIVER")) {
        why_not = "there is no display";
        return nullptr;
    }
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        why_not = std::string("the display cannot be opened: ") + SDL_GetError();
        return nullptr;
    }
    auto impl = std::make_unique<Impl>();
    for (const Uint32 type : unwanted_events) SDL_EventState(type, SDL_IGNORE);
    // An input method would swallow letters, and keep the others back.
    SDL_StopTextInput();
    SDL_Rect screen = usual_screen;
    if (SDL_GetDisplayUsableBounds(0, &screen) != 0) screen = usual_screen;
    impl->window = SDL_CreateWindow(default_caption, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                    FourFifths(screen.w), FourFifths(screen.h),
                                    SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
    if (impl->window == nullptr) {
        why_not = std::string("no window can be opened: ") + SDL_GetError();
        return nullptr;
    }
    WatchForDisplayFaults(impl->window, impl->lost);
    return std::unique_ptr<DesktopWindow>(new DesktopWindow(std::move(impl)));
}

DesktopWindow::DesktopWindow(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

DesktopWindow::~DesktopWindow() = default;

void DesktopWindow::ShowWindow(const char* caption) {
    // Under X11 the window is painted without a graphics card, whose driver is slow to start.
    if (std::strcmp(SDL_GetCurrentVideoDriver(), "x11") == 0) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
    SetTitle(impl_->window, caption);
    SDL_ShowWindow(impl_->window);
    SDL_RaiseWindow(impl_->window);
    // Some desktops show a window, and give it keys, only once something is painted in it.
    impl_->Paint();
    impl_->TakeIn();
}

void DesktopWindow::Turn(KeyListener& listener, double rest) {
    impl_->TakeIn();
    if (impl_->DeliverKeys(listener) || !(rest > 0)) return;
    impl_->Sleep(rest);
    impl_->TakeIn();
    impl_->DeliverKeys(listener);
}

void DesktopWindow::Pump() {
    impl_->TakeIn();
    impl_->PaintDueLines();
}

void DesktopWindow::ShowLine(const std::string& line) {
    impl_->painter.AddLine(line);
    impl_->schedule.LineAdded(SDL_GetTicks64());
}

void DesktopWindow::Press(int code) {
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    event.user.code = code;
    SDL_PushEvent(&event);
}

int DesktopWindow::Number() const {
    return static_cast<int>(XWindowOf(impl_->window));
}

void DesktopWindow::OnFocus(std::function<void(bool focused)> tell) {
    impl_->tell_focus = std::move(tell);
}

void DesktopWindow::MessageBox(const std::string& text, const std::function<void()>& say) {
    if ((SDL_GetWindowFlags(impl_->window) & SDL_WINDOW_SHOWN) == 0) ShowWindow(default_caption);
    impl_->shown_text = WithLineFeeds(text);
    impl_->Paint();
    impl_->TakeIn();
    SDL_FlushEvent(SDL_KEYDOWN);
    SDL_FlushEvent(SDL_USEREVENT);
    std::fprintf(stderr, "%s\n", impl_->shown_text.c_str());
    auto answer = Impl::Answer::again;
    while (answer != Impl::Answer::close) {
        if (answer == Impl::Answer::none) {
            impl_->Sleep(until_event);
        } else if (say) {
            say();
        }
        answer = impl_->TakeAnswer();
    }
    impl_->shown_text.clear();
    impl_->Paint();
}

void DesktopWindow::WhenTheDisplayHasGone(std::function<void()> farewell) {
    SetFarewell(std::move(farewell));
}

}  // namespace tamlo
