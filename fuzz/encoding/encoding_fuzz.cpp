// Any bytes as text: always decoded to UTF-8, cut only between characters.
#include <string>

#include "fuzzing.h"
#include "text/text_encoding.h"
#include "text/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    const std::string_view raw = TextOf(bytes, size);
    const std::string text = DecodeText(raw);
    Check(IsUtf8(text) && text.size() <= 3 * size);
    if (!IsUtf8(raw)) Check(CountCharacters(text) == size);

    std::size_t forward = 0;
    for (std::string_view rest = raw; !rest.empty(); ++forward) {
        const std::size_t length = FirstCharacter(rest);
        Check(length >= 1 && length <= 4 && length <= rest.size());
        const bool soon = forward < 3;  // the search takes its time
        if (const auto code = soon ? ToWindows1252(rest) : std::nullopt) {
            Check(FromWindows1252(*code) == rest.substr(0, length));
            const int small = LowerCase1252(*code);
            const int capital = UpperCase1252(*code);
            Check(LowerCase1252(small) == small && UpperCase1252(capital) == capital);
            Check(small == *code || UpperCase1252(small) == *code);
        }
        rest.remove_prefix(length);
    }
    Check(CountCharacters(raw) == forward);

    // As when what was typed is taken back, one character at a time.
    std::string typed = text;
    for (std::size_t left = CountCharacters(text); !typed.empty(); --left) {
        Check(left > 0);
        const std::size_t length = LastCharacter(typed);
        Check(IsUtf8(std::string_view(typed).substr(typed.size() - length)));
        typed.resize(typed.size() - length);
    }
    return 0;
}
