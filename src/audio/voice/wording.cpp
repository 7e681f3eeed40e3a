#include "audio/voice/wording.h"

#include <algorithm>
#include <optional>

#include "text/utf8.h"

namespace tamlo {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Letters of any script count: every byte of a multi-byte character is one.
bool IsWordCharacter(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

char At(std::string_view text, std::size_t i) {
    return i < text.size() ? text[i] : '\0';
}

std::size_t EndOfDigits(std::string_view text, std::size_t from) {
    while (IsDigit(At(text, from))) ++from;
    return from;
}

struct Reading {
    std::string words;
    std::size_t end = 0;  ///< index after what the words stand for
};

std::string Counted(std::string_view number, std::string_view unit) {
    std::string words(number);
    words.append(" ").append(unit);
    if (number != "1") words += 's';
    return words;
}

std::string WithoutLeadingZeros(std::string digits) {
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

/// Whole dollars from `i`, with or without commas between groups of three digits; moves `i`
/// after them.
std::string TakeDollars(std::string_view text, std::size_t& i) {
    std::size_t end = EndOfDigits(text, i);
    std::string digits(text.substr(i, end - i));
    if (!digits.empty() && digits.size() <= 3) {
        while (At(text, end) == ',' && EndOfDigits(text, end + 1) == end + 4) {
            digits += text.substr(end + 1, 3);
            end += 4;
        }
    }
    i = end;
    return WithoutLeadingZeros(std::move(digits));
}

/// Whether the point after whole dollars ends a sentence, too: not before another mark nor in
/// the middle of a sentence ("$20. please").
bool EndsSentence(std::string_view after_point) {
    std::size_t next = std::min(after_point.find_first_not_of(' '), after_point.size());
    char c = At(after_point, next);
    if (next == 0) return c == '\n';
    return !(c >= 'a' && c <= 'z') && c != '\0';
}

/// An amount of money whose "$" stands at `i`.
std::optional<Reading> ReadMoney(std::string_view text, std::size_t i) {
    if (i > 0 && (IsWordCharacter(text[i - 1]) || text[i - 1] == '$')) return std::nullopt;
    ++i;
    bool negative = At(text, i) == '-';
    if (negative) ++i;
    std::size_t first = i;
    std::string dollars = TakeDollars(text, i);
    bool any_digit = i > first;
    std::string cents;
    bool point = At(text, i) == '.';
    bool sentence = false;
    if (point) {
        std::size_t end = EndOfDigits(text, i + 1);
        cents = text.substr(i + 1, end - i - 1);
        i = end;
        sentence = cents.empty() && EndsSentence(text.substr(i));
    }
    if ((!any_digit && !point) || cents.size() > 2 || IsWordCharacter(At(text, i))) {
        return std::nullopt;
    }
    if (cents.size() == 1) cents += '0';
    cents = WithoutLeadingZeros(std::move(cents));

    std::string words = negative ? "minus " : "";
    if (!dollars.empty()) words += Counted(dollars, "dollar");
    if (!dollars.empty() && !cents.empty()) words += " and ";
    if (!cents.empty()) words += Counted(cents, "cent");
    if (dollars.empty() && cents.empty()) words += "0 dollars";
    if (sentence) words += '.';
    return Reading{std::move(words), i};
}

/// Whether something that begins after `c` stands alone.
bool OpensTime(char c) {
    return c == '\0' || c == ' ' || c == '\n' || c == '(' || c == '"' || c == '\'';
}

/// Whether something that ends at `i` stands alone: a blank or closing mark follows, and after a
/// mark no further part of the same word.
bool ClosesTime(std::string_view text, std::size_t i) {
    constexpr std::string_view marks = ".,;!?)\"'";
    while (marks.find(At(text, i)) != marks.npos) ++i;
    char c = At(text, i);
    return i >= text.size() || c == ' ' || c == '\n';
}

/// A clock time whose first digit stands at `i`.
std::optional<Reading> ReadTime(std::string_view text, std::size_t i) {
    if (i > 0 && !OpensTime(text[i - 1])) return std::nullopt;
    std::size_t colon = EndOfDigits(text, i);
    std::size_t end = EndOfDigits(text, colon + 1);
    std::string_view minute = text.substr(std::min(colon + 1, text.size()), end - colon - 1);
    bool is_time = At(text, colon) == ':' && !minute.empty() && minute.size() <= 2 &&
                   (minute.size() == 1 || minute[0] < '6') && ClosesTime(text, end);
    if (!is_time) return std::nullopt;

    std::string words(text.substr(i, colon - i));
    std::string count = WithoutLeadingZeros(std::string(minute));
    if (count.empty()) {
        words += " o'clock";
    } else {
        words += count.size() == 1 ? " oh " : " ";
        words += count;
    }
    return Reading{std::move(words), end};
}

}  // namespace

std::string WithSpokenAmounts(std::string_view text) {
    std::string result;
    result.reserve(text.size() + 32);
    for (std::size_t i = 0; i < text.size();) {
        std::optional<Reading> reading;
        if (text[i] == '$') {
            reading = ReadMoney(text, i);
        } else if (IsDigit(text[i])) {
            reading = ReadTime(text, i);
        }
        if (reading) {
            result += reading->words;
            i = reading->end;
            continue;
        }
        // Digits that are no time are passed over as a whole, so that none is looked at twice.
        std::size_t end = std::max(EndOfDigits(text, i), i + 1);
        result += text.substr(i, end - i);
        i = end;
    }
    return result;
}

std::string CleanedForSpeech(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto [length, code] = DecodeCharacter(text);
        const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
        const bool reserved = (code >= 0xE000 && code <= 0xF8FF) || code >= 0xF0000 ||
                              (code & 0xFFFE) == 0xFFFE || code == 0xFEFF;
        if (length > 0 && control) {
            result += code == '\n' ? '\n' : ' ';
        } else if (length > 0 && !reserved) {
            result += text.substr(0, length);
        }
        text.remove_prefix(FirstCharacter(text));
    }
    return result;
}

char32_t SingleCharacter(std::string_view text) {
    const Utf8Character character = DecodeCharacter(text);
    return character.length == text.size() ? character.code : 0;
}

}  // namespace tamlo
