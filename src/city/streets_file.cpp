#include "city/streets_file.h"

#include <algorithm>

#include "text/text_encoding.h"
#include "text/utf8.h"

namespace tamlo {
namespace {

constexpr std::size_t longest_file_name = 255;
constexpr char end_of_text = 26;

/// Reads one field after the other.
class FieldReader {
  public:
    explicit FieldReader(std::string_view text) : text_(text.substr(0, text.find(end_of_text))) {}

    bool AtEnd() const { return at_ == text_.size(); }

    /// The line that the next field begins on.
    int Line() const { return line_; }

    std::string Next() {
        while (!AtEnd() && text_[at_] == ' ') ++at_;
        std::string field;
        if (!AtEnd() && text_[at_] == '"') {
            const std::size_t closing = text_.find('"', at_ + 1);
            field = text_.substr(at_ + 1, closing == text_.npos ? closing : closing - at_ - 1);
            at_ = closing == text_.npos ? text_.size() : closing + 1;
        }
        // Text after a closing quote still belongs to the name.
        const std::size_t delimiter = text_.find_first_of(",\r\n", at_);
        field += text_.substr(at_, delimiter == text_.npos ? delimiter : delimiter - at_);
        at_ = delimiter == text_.npos ? text_.size() : delimiter + 1;
        const bool cr_lf =
            delimiter != text_.npos && text_[delimiter] == '\r' && !AtEnd() && text_[at_] == '\n';
        if (cr_lf) ++at_;
        const bool line_end = delimiter != text_.npos && text_[delimiter] != ',';
        line_ += static_cast<int>(std::count(field.begin(), field.end(), '\n')) + line_end;
        return field;
    }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 1;
};

void Shorten(std::string& name) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < longest_street_name && end < name.size(); ++i) {
        end += FirstCharacter(std::string_view(name).substr(end));
    }
    name.resize(end);
}

}  // namespace

std::vector<std::string> ReadStreetNames(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    FieldReader reader(text);
    std::vector<std::string> names;
    while (!reader.AtEnd() && names.size() < static_cast<std::size_t>(names_in_a_city)) {
        names.push_back(reader.Next());
        Shorten(names.back());
    }
    return names;
}

std::vector<StreetField> ReadStreetFields(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    FieldReader reader(text);
    std::vector<StreetField> fields;
    while (!reader.AtEnd()) {
        const int line = reader.Line();
        fields.push_back({reader.Next(), line});
    }
    return fields;
}

std::optional<std::string> WriteStreetNames(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        if (name.find_first_of("\r\n\x1A") != name.npos) return std::nullopt;
        if (name.starts_with(' ') || name.starts_with('"')) return std::nullopt;
        const bool comma = name.find(',') != name.npos;
        if (comma && name.find('"') != name.npos) return std::nullopt;
        text += comma ? '"' + name + "\"\r\n" : name + "\r\n";
    }
    return text;
}

std::string StreetsFileName(std::string_view city) {
    std::string name(streets_prefix);
    if (city != "original") name += city;
    return name += streets_ending;
}

std::string_view WhyNotCityName(std::string_view city) {
    if (city.empty()) return "A city needs a name. ";
    if (StreetsFileName(city).size() > longest_file_name) return "It is too long. ";
    for (; !city.empty(); city.remove_prefix(FirstCharacter(city))) {
        const auto byte = static_cast<unsigned char>(city.front());
        const bool high_control =
            byte == 0xC2 && city.size() > 1 && static_cast<unsigned char>(city[1]) < 0xA0;
        if (byte < 32 || byte == 127 || high_control) {
            return "One of its keys is not that of a letter, a digit or a sign. ";
        }
        if (std::string_view("/\\:*?\"<>|").find(city.front()) != std::string_view::npos) {
            return "It may have no slash, backslash, colon, asterisk, question mark, double quote, "
                   "less than, greater than or vertical bar. ";
        }
    }
    return "";
}

}  // namespace tamlo
