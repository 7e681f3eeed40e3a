// Counting the text fields in a file's bytes.
#include "sound/text_fields.h"

#include <algorithm>

namespace tamlo {
namespace {

constexpr char end_of_text = 26;
constexpr std::string_view delimiters = ",\r\n";

/// The length of the leading part of `text` that holds none of `stops`.
std::size_t LengthUntil(std::string_view text, std::string_view stops) {
    return std::min(text.find_first_of(stops), text.size());
}

void SkipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
}

/// A carriage return followed by a line feed is one delimiter; the other order is two.
void SkipDelimiter(std::string_view& text) {
    if (text.starts_with("\r\n")) {
        text.remove_prefix(2);
    } else if (!text.empty() && delimiters.find(text.front()) != delimiters.npos) {
        text.remove_prefix(1);
    }
}

/// Takes one field and its delimiter off the front of `text`; returns the field's length.
std::size_t TakeField(std::string_view& text) {
    SkipBlanks(text);
    const bool quoted = text.starts_with('"');
    if (quoted) text.remove_prefix(1);
    const std::size_t length = LengthUntil(text, quoted ? "\"" : delimiters);
    text.remove_prefix(length);
    if (quoted) {
        // The closing quote, if there is one. What follows it, unless blank, begins the next field.
        text.remove_prefix(std::min<std::size_t>(1, text.size()));
        SkipBlanks(text);
    }
    SkipDelimiter(text);
    return length;
}

}  // namespace

TextFields CountTextFields(std::string_view bytes) {
    std::string_view text = bytes.substr(0, bytes.find(end_of_text));
    TextFields fields;
    do {
        fields.last_length = TakeField(text);
        ++fields.count;
    } while (!text.empty());
    return fields;
}

}  // namespace tamlo
