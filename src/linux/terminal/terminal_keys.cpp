// The tables of what terminals send, and the state machine that reads it byte by byte.
#include "linux/terminal/terminal_keys.h"

#include <algorithm>
#include <utility>

#include "services/key_codes.h"

namespace tamlo {
namespace {

constexpr char escape = '\x1b';

// Longer sequences are no keys; their rest is read and dropped.
constexpr std::size_t longest_sequence = 32;

struct TypedSign {
    char sign;
    char shifted;
    int code;
};

constexpr TypedSign signs[] = {
    {'0', ')', '0'},
    {'1', '!', '1'},
    {'2', '@', '2'},
    {'3', '#', '3'},
    {'4', '$', '4'},
    {'5', '%', '5'},
    {'6', '^', '6'},
    {'7', '&', '7'},
    {'8', '*', '8'},
    {'9', '(', '9'},
    {';', ':', keys::semicolon},
    {'=', '+', keys::equals},
    {',', '<', keys::comma},
    {'-', '_', keys::hyphen},
    {'.', '>', keys::full_stop},
    {'/', '?', keys::slash},
    {'`', '~', keys::grave_accent},
    {'[', '{', keys::left_bracket},
    {'\\', '|', keys::backslash},
    {']', '}', keys::right_bracket},
    {'\'', '"', keys::apostrophe},
};

struct NamedKey {
    char final;
    int code;
};

// ESC [ final and ESC O final, with any parameters between; lower case: rxvt with Shift or Control.
constexpr NamedKey letter_keys[] = {
    {'A', keys::up},    {'B', keys::down}, {'C', keys::right}, {'D', keys::left},
    {'a', keys::up},    {'b', keys::down}, {'c', keys::right}, {'d', keys::left},
    {'E', keys::clear}, {'F', keys::end},  {'H', keys::home},  {'P', keys::f1},
    {'Q', keys::f2},    {'R', keys::f3},   {'S', keys::f4},    {'Z', keys::tab},
};

// ESC O final only: the keypad in its application mode.
constexpr NamedKey keypad_keys[] = {
    {'M', keys::enter},        {'I', keys::tab},          {'X', keys::equals},
    {'j', keys::keypad_times}, {'k', keys::keypad_plus},  {'l', keys::keypad_separator},
    {'m', keys::keypad_minus}, {'n', keys::keypad_point}, {'o', keys::keypad_divide},
    {'p', keys::keypad_0},     {'q', keys::keypad_0 + 1}, {'r', keys::keypad_0 + 2},
    {'s', keys::keypad_0 + 3}, {'t', keys::keypad_0 + 4}, {'u', keys::keypad_0 + 5},
    {'v', keys::keypad_0 + 6}, {'w', keys::keypad_0 + 7}, {'x', keys::keypad_0 + 8},
    {'y', keys::keypad_0 + 9},
};

// ESC [ [ final: the text console.
constexpr NamedKey console_keys[] = {
    {'A', keys::f1}, {'B', keys::f2}, {'C', keys::f3}, {'D', keys::f4}, {'E', keys::f5}};

struct NumberedKey {
    int number;
    int code;
};

// ESC [ number ~ (rxvt with Shift or Control: $ ^ @ instead of ~).
constexpr NumberedKey numbered_keys[] = {
    {1, keys::home},     {2, keys::insert},    {3, keys::delete_key}, {4, keys::end},
    {5, keys::page_up},  {6, keys::page_down}, {7, keys::home},       {8, keys::end},
    {11, keys::f1},      {12, keys::f2},       {13, keys::f3},        {14, keys::f4},
    {15, keys::f5},      {17, keys::f6},       {18, keys::f1 + 6},    {19, keys::f1 + 7},
    {20, keys::f1 + 8},  {21, keys::f1 + 9},   {23, keys::f1 + 10},   {24, keys::f1 + 11},
    {25, keys::f1 + 12}, {26, keys::f1 + 13},  {28, keys::f1 + 14},   {29, keys::f1 + 15},
    {31, keys::f1 + 16}, {32, keys::f1 + 17},  {33, keys::f1 + 18},   {34, keys::f1 + 19},
};

template <std::size_t n>
int Named(const NamedKey (&table)[n], char final) {
    const auto* const key =
        std::find_if(table, table + n, [&](const NamedKey& k) { return k.final == final; });
    return key == table + n ? 0 : key->code;
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
        if (gaps_ == Gaps::lost) Press(keys::escape);
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
        Press(keys::shift);
        Press(byte);
    } else if (byte == ' ' || byte == '\t') {
        Press(byte);
    } else if (byte == '\x7f' || byte == '\b') {
        Press(keys::backspace);
    } else if (byte == '\r' || byte == '\n') {
        const bool one_line_end = byte == '\n' && last_ == '\r' && gaps_ == Gaps::lost;
        if (!one_line_end) Press(keys::enter);
    } else {
        for (const TypedSign& sign : signs) {
            if (byte == sign.shifted) Press(keys::shift);
            if (byte == sign.sign || byte == sign.shifted) Press(sign.code);
        }
    }
}

void TerminalKeys::Resolve() {
    const std::string cut = std::exchange(pending_, {});
    if (cut.size() == 1 || (cut.size() == 2 && gaps_ == Gaps::lost)) Press(keys::escape);
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
    if (gaps_ == Gaps::kept || key == keys::shift) turns_to_wait_ = turns_between_keys;
    return key;
}

}  // namespace tamlo
