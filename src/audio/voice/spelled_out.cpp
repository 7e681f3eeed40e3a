#include "audio/voice/spelled_out.h"

#include <algorithm>
#include <array>

namespace tamlo {
namespace {

constexpr std::array<const char*, 20> small_numbers{
    "zero",     "one",     "two",     "three",     "four",     "five",    "six",
    "seven",    "eight",   "nine",    "ten",       "eleven",   "twelve",  "thirteen",
    "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array<const char*, 10> tens{"",      "",      "twenty",  "thirty", "forty",
                                           "fifty", "sixty", "seventy", "eighty", "ninety"};
constexpr std::size_t most_digits = 9;

std::string Joined(std::string words, const std::string& more) {
    if (!words.empty() && !more.empty()) words += ' ';
    return words + more;
}

/// Below a thousand; nothing for 0.
std::string HundredsInWords(unsigned number) {
    std::string words;
    if (number >= 100) words = std::string(small_numbers[number / 100]) + " hundred";
    number %= 100;
    if (number >= 20) {
        words = Joined(words, tens[number / 10]);
        number %= 10;
    }
    return number == 0 ? words : Joined(words, small_numbers[number]);
}

std::string DigitByDigit(std::string_view digits) {
    std::string words;
    for (char digit : digits) {
        if (!words.empty()) words += ' ';
        words += small_numbers[static_cast<std::size_t>(digit - '0')];
    }
    return words;
}

struct Ordinal {
    std::string_view number;
    const char* ordinal;
};

constexpr Ordinal odd_ordinals[] = {{"one", "first"},     {"two", "second"},   {"three", "third"},
                                    {"five", "fifth"},    {"eight", "eighth"}, {"nine", "ninth"},
                                    {"twelve", "twelfth"}};

struct Mark {
    char32_t mark;
    const char* name;
    const char* in_text;  ///< " " for what is silent there
};

constexpr const char* by_name = nullptr;

constexpr Mark marks[] = {
    {'!', "exclamation mark", "."},
    {'"', "quote", " "},
    {'#', "hash", by_name},
    {'$', "dollar", by_name},
    {'%', "percent", by_name},
    {'&', "ampersand", "and"},
    {'\'', "apostrophe", "'"},
    {'(', "left parenthesis", " "},
    {')', "right parenthesis", " "},
    {'*', "star", by_name},
    {'+', "plus", by_name},
    {',', "comma", ","},
    {'-', "dash", "-"},
    {'.', "dot", "."},
    {'/', "slash", by_name},
    {':', "colon", ","},
    {';', "semicolon", ","},
    {'<', "less than", by_name},
    {'=', "equals", by_name},
    {'>', "greater than", by_name},
    {'?', "question mark", "?"},
    {'@', "at", by_name},
    {'[', "left bracket", " "},
    {'\\', "backslash", by_name},
    {']', "right bracket", " "},
    {'^', "caret", by_name},
    {'_', "underscore", " "},
    {'`', "grave accent", " "},
    {'{', "left brace", " "},
    {'|', "vertical bar", by_name},
    {'}', "right brace", " "},
    {'~', "tilde", by_name},
    {U'\u00A3', "pound", by_name},
    {U'\u00A7', "section", by_name},
    {U'\u00B0', "degrees", by_name},
    {U'\u00BC', "one quarter", by_name},
    {U'\u00BD', "one half", by_name},
    {U'\u00BE', "three quarters", by_name},
    {U'\u00D7', "times", by_name},
    {U'\u00F7', "divided by", by_name},
    {U'\u2013', "dash", ","},
    {U'\u2014', "dash", ","},
    {U'\u2018', "quote", "'"},
    {U'\u2019', "apostrophe", "'"},
    {U'\u201C', "quote", " "},
    {U'\u201D', "quote", " "},
    {U'\u2026', "dots", "."},
    {U'\u20AC', "euro", by_name},
};

const Mark* FindMark(char32_t character) {
    const auto* found = std::find_if(std::begin(marks), std::end(marks),
                                     [&](const Mark& one) { return one.mark == character; });
    return found == std::end(marks) ? nullptr : found;
}

/// U+00C0 to U+00DF; the small letters follow in the same order.
constexpr std::array<const char*, 32> latin_1{
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i",  "i",
    "d", "n", "o", "o", "o", "o", "o",  "",  "o", "u", "u", "u", "u", "y", "th", "ss"};
/// U+0100 to U+017F.
constexpr std::string_view latin_a =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkkllllllllll"
    "nnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(latin_a.size() == 128);

bool IsAsciiLetterOrDigit(char32_t c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// An accented Latin letter without its accent; nothing for other characters.
std::string WithoutAccent(char32_t character) {
    if (character == 0xFF) return "y";
    if (character >= 0xC0 && character < 0xFF) return latin_1[(character - 0xC0) % 32];
    if (character >= 0x100 && character < 0x180) return {latin_a[character - 0x100]};
    return "";
}

}  // namespace

std::string NumberInWords(std::string_view digits) {
    if (digits.size() > most_digits || (digits.size() > 1 && digits[0] == '0')) {
        return DigitByDigit(digits);
    }
    unsigned number = 0;
    for (char digit : digits) number = number * 10 + static_cast<unsigned>(digit - '0');
    if (number == 0) return small_numbers[0];
    std::string words = HundredsInWords(number / 1'000'000);
    if (!words.empty()) words += " million";
    if (std::string thousands = HundredsInWords(number / 1000 % 1000); !thousands.empty()) {
        words = Joined(words, thousands + " thousand");
    }
    return Joined(words, HundredsInWords(number % 1000));
}

std::string OrdinalInWords(std::string_view digits) {
    std::string words = NumberInWords(digits);
    const std::size_t last = words.rfind(' ') + 1;  // 0 if there is no blank
    for (const auto& [number, ordinal] : odd_ordinals) {
        if (words.substr(last) == number) return words.replace(last, words.npos, ordinal);
    }
    if (words.back() == 'y') return words.replace(words.size() - 1, 1, "ieth");
    return words + "th";
}

std::string CharacterName(char32_t character) {
    if (character == ' ' || character == '\n') return "";
    if (character == 'a' || character == 'A') return "eigh";  // The article is another sound.
    if (character >= '0' && character <= '9') return small_numbers[character - '0'];
    if (IsAsciiLetterOrDigit(character)) return {static_cast<char>(character)};
    if (const Mark* mark = FindMark(character)) return mark->name;
    std::string letter = WithoutAccent(character);
    if (letter.empty()) return "character";
    return letter.size() == 1 ? CharacterName(static_cast<char32_t>(letter[0])) : letter;
}

std::string InPlainLetters(char32_t character) {
    if (IsAsciiLetterOrDigit(character) || character == '\n') return {static_cast<char>(character)};
    if (const Mark* mark = FindMark(character)) {
        const std::string words = mark->in_text == by_name ? mark->name : mark->in_text;
        return words.size() > 1 ? " " + words + " " : words;
    }
    std::string letter = WithoutAccent(character);
    return letter.empty() ? " " : letter;
}

}  // namespace tamlo
