// The tables of what terminals send, and the machine that reads it byte by byte.
#include "linux/terminal/terminal_keys.h"

#include <algorithm>
#include <utility>

namespace tamlo {
namespace {

constexpr char escape = '\x1b';
constexpr int backspace_key = 8;
constexpr int tab_key = 9;
constexpr int enter_key = 13;
constexpr int shift_key = 16;
constexpr int escape_key = 27;

// Longer sequences are no keys; their rest is read and dropped.
constexpr std::size_t longest_sequence = 32;

struct TypedSign {
    char sign;
    char shifted;
    int code;
};

constexpr TypedSign signs[] = {
    {'0', ')', 48},   {'1', '!', 49},  {'2', '@', 50},  {'3', '#', 51},   {'4', '$', 52},
    {'5', '%', 53},   {'6', '^', 54},  {'7', '&', 55},  {'8', '*', 56},   {'9', '(', 57},
    {';', ':', 186},  {'=', '+', 187}, {',', '<', 188}, {'-', '_', 189},  {'.', '>', 190},
    {'/', '?', 191},  {'`', '~', 192}, {'[', '{', 219}, {'\\', '|', 220}, {']', '}', 221},
    {'\'', '"', 222},
};

struct NamedKey {
    char final;
    int code;
};

// ESC [ final and ESC O final, with any parameters between; lower case: rxvt with Shift or Control.
constexpr NamedKey letter_keys[] = {
    {'A', 38}, {'B', 40}, {'C', 39}, {'D', 37},  {'a', 38},  {'b', 40},  {'c', 39},  {'d', 37},
    {'E', 12}, {'F', 35}, {'H', 36}, {'P', 112}, {'Q', 113}, {'R', 114}, {'S', 115}, {'Z', tab_key},
};

// ESC O final only: the keypad in its application mode.
constexpr NamedKey keypad_keys[] = {
    {'M', enter_key}, {'I', tab_key}, {'X', 187}, {'j', 106}, {'k', 107}, {'l', 108}, {'m', 109},
    {'n', 110},       {'o', 111},     {'p', 96},  {'q', 97},  {'r', 98},  {'s', 99},  {'t', 100},
    {'u', 101},       {'v', 102},     {'w', 103}, {'x', 104}, {'y', 105},
};

// ESC [ [ final: the text console.
constexpr NamedKey console_keys[] = {{'A', 112}, {'B', 113}, {'C', 114}, {'D', 115}, {'E', 116}};

struct NumberedKey {
    int number;
    int code;
};

// ESC [ number ~ (rxvt with Shift or Control: $ ^ @ instead of ~).
constexpr NumberedKey numbered_keys[] = {
    {1, 36},   {2, 45},   {3, 46},   {4, 35},   {5, 33},   {6, 34},   {7, 36},
    {8, 35},   {11, 112}, {12, 113}, {13, 114}, {14, 115}, {15, 116}, {17, 117},
    {18, 118}, {19, 119}, {20, 120}, {21, 121}, {23, 122}, {24, 123}, {25, 124},
    {26, 125}, {28, 126}, {29, 127}, {31, 128}, {32, 129}, {33, 130}, {34, 131},
};

template <std::size_t n>
int Named(const NamedKey (&keys)[n], char final) {
    const auto* const key =
        std::find_if(keys, keys + n, [&](const NamedKey& k) { return k.final == final; });
    return key == keys + n ? 0 : key->code;
}

int Numbered(std::string_view parameters) {
    int number = 0;
    for (const char c : parameters.substr(0, parameters.find(';'))) {
        if (c < '0' || c > '9' || number > 99) return 0;
        number = 10 * number + (c - '0');
    }
    for (const NumberedKey& key : numbered_keys) {
        if (key.number == number) return key.code;
    }
    return 0;
}

/// The key of a whole sequence: `start` is its beginning without the Escape; 0 if it is none.
int CodeOf(std::string_view start, char final) {
    if (start.starts_with("[[")) return Named(console_keys, final);
    if (start.starts_with('O')) {
        const int code = Named(letter_keys, final);
        return code != 0 ? code : Named(keypad_keys, final);
    }
    if (std::string_view("~$^@").find(final) != std::string_view::npos) {
        return Numbered(start.substr(1));
    }
    // What a terminal says of itself looks alike, but has other parameters.
    const bool bare = start.size() == 1;
    const bool plain = start.find_first_not_of("0123456789;", 1) == std::string_view::npos;
    const bool rxvt = final >= 'a' && final <= 'z';
    return plain && (bare || !rxvt) ? Named(letter_keys, final) : 0;
}

}  // namespace

void TerminalKeys::Feed(std::string_view bytes, Time now) {
    if (!bytes.empty()) pending_since_ = now;
    for (const char byte : bytes) {
        FeedByte(byte);
        last_ = byte;
    }
}

void TerminalKeys::FeedByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    if (byte == escape) {
        Resolve();
        pending_ = escape;
    } else if (pending_.empty()) {
        Type(byte);
    } else if (pending_.size() > 1 && (code < 0x20 || code >= 0x7f)) {
        Resolve();
        Type(byte);
    } else {
        Continue(byte);
    }
}

/// Takes one more byte of the sequence begun.
void TerminalKeys::Continue(char byte) {
    if (pending_.size() == 1) {
        if (byte == '[' || byte == 'O') {
            pending_ += byte;
            return;
        }
        if (gaps_ == Gaps::lost) Press(escape_key);
        pending_.clear();
        Type(byte);
        return;
    }
    const bool console = pending_ == "\x1b[" && byte == '[';
    const bool parameter = byte >= ' ' && byte <= '?' && byte != '$';
    if (console || parameter) {
        if (pending_.size() < longest_sequence) pending_ += byte;
        return;
    }
    const bool whole = pending_.size() < longest_sequence;
    const int code = whole ? CodeOf(std::string_view(pending_).substr(1), byte) : 0;
    if (code != 0) Press(code);
    pending_.clear();
}

/// A byte that stands for itself.
void TerminalKeys::Type(char byte) {
    if (byte >= 'a' && byte <= 'z') {
        Press(byte - 'a' + 'A');
    } else if (byte >= 'A' && byte <= 'Z') {
        Press(shift_key);
        Press(byte);
    } else if (byte == ' ' || byte == '\t') {
        Press(byte);
    } else if (byte == '\x7f' || byte == '\b') {
        Press(backspace_key);
    } else if (byte == '\r' || byte == '\n') {
        const bool one_line_end = byte == '\n' && last_ == '\r' && gaps_ == Gaps::lost;
        if (!one_line_end) Press(enter_key);
    } else {
        for (const TypedSign& sign : signs) {
            if (byte == sign.shifted) Press(shift_key);
            if (byte == sign.sign || byte == sign.shifted) Press(sign.code);
        }
    }
}

void TerminalKeys::Resolve() {
    const std::string cut = std::exchange(pending_, {});
    if (cut.size() == 1 || (cut.size() == 2 && gaps_ == Gaps::lost)) Press(escape_key);
    // Escape and "[" or "O", or one of these with Alt held. What was cut later was never a key.
    if (cut.size() == 2) Type(cut.back());
}

void TerminalKeys::Settle(Time now) {
    if (!pending_.empty() && now - pending_since_ >= sequence_time) Resolve();
}

std::optional<TerminalKeys::Time> TerminalKeys::Deadline() const {
    if (pending_.empty()) return std::nullopt;
    return pending_since_ + sequence_time;
}

void TerminalKeys::Press(int code) {
    if (together_ && one_came_) {
        keys_.back() = code;
        return;
    }
    keys_.push_back(code);
    if (!together_) return;
    one_came_ = true;
    if (keys_.size() == 1) turns_to_wait_ = 0;
}

std::optional<int> TerminalKeys::Take() {
    together_ = false;
    one_came_ = false;
    if (turns_to_wait_ > 0 && --turns_to_wait_ > 0) return std::nullopt;
    if (keys_.empty()) return std::nullopt;
    const int key = keys_.front();
    keys_.pop_front();
    // A pipe waits for the game to rest before each key; only its Shift goes straight on.
    if (gaps_ == Gaps::kept || key == shift_key) turns_to_wait_ = turns_between_keys;
    return key;
}

}  // namespace tamlo
