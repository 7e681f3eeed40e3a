#include "city/streets_file.h"

#include "store/text_encoding.h"

namespace tamlo {
namespace {

constexpr std::size_t longest_name = 200;  // characters; nobody waits for a longer one
constexpr std::size_t longest_file_name = 255;
constexpr char end_of_text = 26;

/// Reads one field after the other.
class FieldReader {
  public:
    explicit FieldReader(std::string_view text) : text_(text.substr(0, text.find(end_of_text))) {}

    bool AtEnd() const { return at_ == text_.size(); }

    std::string Next() {
        while (!AtEnd() && text_[at_] == ' ') ++at_;
        std::string field;
        if (!AtEnd() && text_[at_] == '"') {
            const std::size_t closing = text_.find('"', at_ + 1);
            field = text_.substr(at_ + 1, closing == text_.npos ? closing : closing - at_ - 1);
            at_ = closing == text_.npos ? text_.size() : closing + 1;
        }
        // What a player left behind a closing quote still belongs to the name.
        const std::size_t delimiter = text_.find_first_of(",\r\n", at_);
        field += text_.substr(at_, delimiter == text_.npos ? delimiter : delimiter - at_);
        at_ = delimiter == text_.npos ? text_.size() : delimiter + 1;
        const bool cr_lf =
            delimiter != text_.npos && text_[delimiter] == '\r' && !AtEnd() && text_[at_] == '\n';
        if (cr_lf) ++at_;
        return field;
    }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
};

void Shorten(std::string& name) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < longest_name && end < name.size(); ++i) {
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

std::string StreetsFileName(std::string_view city) {
    std::string name(streets_prefix);
    if (city != "original") name += city;
    return name += streets_ending;
}

bool UsableCityName(std::string_view city) {
    if (city.empty() || StreetsFileName(city).size() > longest_file_name) return false;
    for (const char end : {city.front(), city.back()}) {
        if (end == ' ' || end == '.') return false;
    }
    for (; !city.empty(); city.remove_prefix(FirstCharacter(city))) {
        const auto byte = static_cast<unsigned char>(city.front());
        if (byte < 32 || byte == 127 ||
            std::string_view("/\\:*?\"<>|").find(city.front()) != std::string_view::npos) {
            return false;
        }
        const bool high_control =
            byte == 0xC2 && city.size() > 1 && static_cast<unsigned char>(city[1]) < 0xA0;
        if (high_control) return false;
    }
    return true;
}

}  // namespace tamlo
