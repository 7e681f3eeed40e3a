// Making texts harmless, and printing them without ever being held up for good.
#include "platform/terminal/printed_lines.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <utility>

namespace tamlo {
namespace {

/// Length of the well-formed UTF-8 character at the start of `text`; 0 if there is none.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0U) != 0x80) return 0;
    }
    const unsigned second = byte(1);
    const bool overlong = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
    const bool no_character = (first == 0xed && second > 0x9f) || (first == 0xf4 && second > 0x8f);
    return overlong || no_character ? 0 : length;
}

/// Whether a terminal could take the character for a command: C0, DEL and C1.
bool IsControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) return first < 0x20 || first == 0x7f;
    return first == 0xc2 && static_cast<unsigned char>(character[1]) < 0xa0;
}

}  // namespace

std::string PrintableLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const std::string_view character = text.substr(0, length);
        if (length != 0) line += IsControl(character) ? std::string_view(" ") : character;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

LinePrinter::LinePrinter(int descriptor, WhenStuck when_stuck, std::function<void()> check)
    : descriptor_(descriptor), when_stuck_(when_stuck), check_(std::move(check)) {}

void LinePrinter::Print(std::string_view line) {
    if (line.empty() || broken_) return;
    const std::string printed = std::string(line) + '\n';
    std::string_view rest = printed;
    while (!rest.empty()) {
        if (!AwaitRoom()) return;
        // A pipe that has any room takes this much without holding us up.
        const ssize_t count =
            ::write(descriptor_, rest.data(), std::min<std::size_t>(rest.size(), PIPE_BUF));
        if (count > 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR && errno != EAGAIN) {
            return GiveUp();
        }
    }
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
