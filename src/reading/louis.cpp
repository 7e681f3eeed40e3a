// Translation by liblouis.
#include <liblouis/liblouis.h>

#include <vector>

#include "reading/translator.h"
#include "text/utf8.h"

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

std::vector<widechar> Wide(std::string_view text) {
    std::vector<widechar> wide;
    while (!text.empty()) {
        const Utf8Character character = DecodeCharacter(text);
        wide.push_back(character.length == 0 || character.code < ' ' ? ' ' : character.code);
        text.remove_prefix(FirstCharacter(text));
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
