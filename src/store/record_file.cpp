#include "store/record_file.h"

#include <limits>
#include <tuple>

#include "store/tagged_values.h"
#include "text/text_encoding.h"
#include "text/utf8.h"

namespace tamlo {
namespace {

std::optional<std::string> ReadName(TaggedReader& reader) {
    constexpr int shortest_character = 2;  // bytes: at least a tag
    const auto length = reader.Whole(0, std::numeric_limits<int>::max() / shortest_character);
    if (!length) return std::nullopt;
    std::string name;
    for (int i = 0; i < *length; ++i) {
        const auto code = reader.Whole(0, 255);
        if (!code) return std::nullopt;
        name += FromWindows1252(*code);
    }
    return name;
}

}  // namespace

bool Record::ShorterThan(const Record& other) const {
    return std::tie(hours, minutes, seconds) < std::tie(other.hours, other.minutes, other.seconds);
}

std::string EncodeRecord(const Record& record) {
    std::string bytes;
    AppendInteger(bytes, record.hours);
    AppendInteger(bytes, record.minutes);
    AppendNumber(bytes, record.seconds);
    AppendLarge(bytes, static_cast<int>(CountCharacters(record.name)));
    for (std::string_view rest = record.name; !rest.empty();
         rest.remove_prefix(FirstCharacter(rest))) {
        AppendInteger(bytes, ToWindows1252(rest).value_or('?'));
    }
    AppendNumber(bytes, record.date.month);
    AppendNumber(bytes, record.date.day);
    AppendNumber(bytes, record.date.year);
    return bytes;
}

std::optional<Record> DecodeRecord(std::string_view bytes) {
    constexpr int most = std::numeric_limits<int>::max();
    TaggedReader reader(bytes);
    const auto hours = reader.Whole(0, most);
    const auto minutes = reader.Whole(0, 59);
    const auto seconds = reader.Number();
    if (!hours || !minutes || !seconds || *seconds >= 60) return std::nullopt;
    const auto name = ReadName(reader);
    const auto month = reader.Whole(1, 12);
    const auto day = reader.Whole(1, 31);
    const auto year = reader.Whole(0, 9999);
    if (!name || !month || !day || !year) return std::nullopt;
    return Record{*hours, *minutes, *seconds, *name, {*year, *month, *day}};
}

std::string OverwrittenBy(std::string_view old_bytes, std::string_view new_bytes) {
    std::string bytes(new_bytes);
    if (old_bytes.size() > new_bytes.size()) bytes += old_bytes.substr(new_bytes.size());
    return bytes;
}

}  // namespace tamlo
