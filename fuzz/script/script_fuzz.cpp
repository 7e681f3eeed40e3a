// Any text as a rehearsal's script: steps in their ranges, or an error with its line.
#include <algorithm>
#include <variant>

#include "fuzzing.h"
#include "game/game_fields.h"
#include "rehearsal/script.h"

namespace tamlo {
namespace {

void CheckStep(const Step& step, int before, int lines) {
    Check(step.line >= before && step.line <= lines);
    for (const double number : step.numbers) Check(number >= 0 && number < 1);
    switch (step.kind) {
        case Step::Kind::press:
        case Step::Kind::upon_speech:
        case Step::Kind::upon_sound:
        case Step::Kind::after: Check(step.key >= 1 && step.key <= 255 && step.delay >= 0); break;
        case Step::Kind::set: Check(WhyNotSet(step.words.at(0), step.words.at(1)).empty()); break;
        case Step::Kind::show:
            for (const std::string& field : step.words) Check(WhyNotShow(field).empty());
            break;
        case Step::Kind::draw: break;
    }
}

}  // namespace
}  // namespace tamlo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    const std::string_view text = TextOf(bytes, size);
    const auto lines = 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    const auto read = ReadScript(text, {WhyNotSet, WhyNotShow});
    if (const auto* error = std::get_if<ScriptError>(&read)) {
        Check(!error->what.empty() && error->line >= 1 && error->line <= lines);
        return 0;
    }
    const Script& script = std::get<Script>(read);
    Check(script.voices >= 0);
    int before = 1;
    for (const Step& step : script.steps) {
        CheckStep(step, before, lines);
        before = step.line;
    }
    return 0;
}
