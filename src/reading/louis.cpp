// Translation by liblouis.
#include <liblouis/liblouis.h>

#include <vector>

#include "reading/translator.h"

namespace tamlo {
namespace {

constexpr char32_t first_pattern = 0x2800;  // the patterns of Unicode stand in the order of dots
constexpr std::string_view ascii_braille =
    " A1B'K2L@CIF/MSP\"E3H9O6R^DJG>NTQ,*5<-U8V.%[$+X!&;:4\\0Z7(_?W]#Y)=";
static_assert(ascii_braille.size() == 64);

constexpr const char* TableOf(Grade grade) {
    return grade == Grade::contracted ? "unicode.dis,en-ueb-g2.ctb" : "unicode.dis,en-ueb-g1.ctb";
}

void SayNothing(logLevels /*level*/, const char* /*message*/) {}

/// Length of the well-formed UTF-8 character at the front, 0 if it is none.
std::size_t LengthOf(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0;
    }
    return length;
}

std::vector<widechar> Wide(std::string_view text) {
    std::vector<widechar> wide;
    while (!text.empty()) {
        const std::size_t length = LengthOf(text);
        auto code = static_cast<unsigned char>(text.front());
        widechar character = length == 1 ? code : static_cast<widechar>(code & (0x7F >> length));
        for (std::size_t i = 1; i < length; ++i) {
            character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
        }
        wide.push_back(length == 0 || character < ' ' ? ' ' : character);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return wide;
}

class Louis : public BrailleTranslator {
  public:
    explicit Louis(const char* table) : table_(table) {}
    Louis(const Louis&) = delete;
    Louis& operator=(const Louis&) = delete;
    ~Louis() override { lou_free(); }

    std::string Translate(std::string_view print) override {
        std::vector<widechar> wide = Wide(print);
        // The longest that a character can become is its number, spelled out.
        std::vector<widechar> dots(16 * wide.size() + 16);
        int length = static_cast<int>(wide.size());
        int cells = static_cast<int>(dots.size());
        if (lou_translateString(table_, wide.data(), &length, dots.data(), &cells, nullptr, nullptr,
                                0) == 0) {
            return "";
        }
        std::string braille;
        for (int i = 0; i < cells; ++i) {
            const char32_t pattern = dots[static_cast<std::size_t>(i)] - first_pattern;
            braille += ascii_braille[pattern < ascii_braille.size() ? pattern : 0];
        }
        return braille;
    }

  private:
    const char* table_;
};

}  // namespace

std::unique_ptr<BrailleTranslator> MakeTranslator(Grade grade) {
    lou_registerLogCallback(SayNothing);
    const char* table = TableOf(grade);
    if (lou_checkTable(table) == 0) return nullptr;
    return std::make_unique<Louis>(table);
}

}  // namespace tamlo
