// Printing lines; a reader that takes nothing does not stop the game.
#include "linux/terminal/printed_lines.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <utility>
#include <vector>

#include "services/end_of_process.h"
#include "text/printable.h"

namespace tamlo {
namespace {

/// Columns and rows of a terminal; none of something else.
struct Screen {
    std::size_t columns = 0;
    std::size_t rows = 0;
};

Screen ScreenOf(int descriptor) {
    winsize size = {};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) != 0) return {};
    return {size.ws_col, size.ws_row};
}

std::string Joined(const std::vector<std::string_view>& rows) {
    std::string text;
    for (const std::string_view row : rows) text += (text.empty() ? "" : "\n") + std::string(row);
    return text;
}

std::string UpTo(std::size_t rows) {
    return rows == 0 ? "" : "\x1b[" + std::to_string(rows) + "A";
}

}  // namespace

LinePrinter::LinePrinter(int descriptor, WhenStuck when_stuck, std::function<void()> check,
                         Cursor cursor)
    : descriptor_(descriptor), when_stuck_(when_stuck), check_(std::move(check)), cursor_(cursor) {}

LinePrinter::~LinePrinter() {
    try {
        LeaveLine();
    } catch (const EndOfProcess&) {
        // The end is on its way already.
    }
}

void LinePrinter::Print(std::string_view line) {
    if (line.empty()) return;
    const Screen screen = ScreenOf(descriptor_);
    const std::vector<std::string_view> broken = BrokenAtWords(line, screen.columns);
    if (cursor_ == Cursor::below) {
        Write(Joined(broken) + '\n');
        return;
    }
    const std::size_t rows = std::min(broken.size(), std::max<std::size_t>(screen.rows, 1));
    if (Write(std::string(rows_above_, '\n') + Joined(broken) + '\r' + UpTo(rows - 1))) {
        rows_above_ = rows;
    }
}

void LinePrinter::LeaveLine() {
    if (Write(std::string(rows_above_, '\n'))) rows_above_ = 0;
}

/// False if it could not be written, or not in full.
bool LinePrinter::Write(std::string_view rest) {
    if (broken_) return false;
    while (!rest.empty()) {
        if (!AwaitRoom()) return false;
        // A pipe that has any room takes this much without holding us up.
        const ssize_t count =
            ::write(descriptor_, rest.data(), std::min<std::size_t>(rest.size(), PIPE_BUF));
        if (count > 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR && errno != EAGAIN) {
            GiveUp();
            return false;
        }
    }
    return true;
}

/// True when there is room to print; false if the line is to be left out.
bool LinePrinter::AwaitRoom() {
    constexpr int slice_ms = 100;
    constexpr int slices_until_dropped = 10;
    for (int slices = 0;; ++slices) {
        pollfd sink = {descriptor_, POLLOUT, 0};
        if (::poll(&sink, 1, stuck_ ? 0 : slice_ms) > 0) {
            stuck_ = false;
            return true;
        }
        check_();
        if (when_stuck_ == WhenStuck::drop && (stuck_ || slices >= slices_until_dropped)) {
            stuck_ = true;
            return false;
        }
    }
}

void LinePrinter::GiveUp() {
    broken_ = true;
    constexpr std::string_view notice = "Nothing more can be printed; the game goes on by voice.\n";
    [[maybe_unused]] const ssize_t told = ::write(STDERR_FILENO, notice.data(), notice.size());
}

void LinePrinter::PrintLines(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        Print(PrintableLine(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

}  // namespace tamlo
