// Any bytes from a terminal: keys that exist, the same however the bytes arrive in pieces.
#include <vector>

#include "fuzzing.h"
#include "linux/terminal/terminal_keys.h"

namespace tamlo {
namespace {

void TakeAll(TerminalKeys& keys, std::vector<int>& taken) {
    while (keys.Waiting()) {
        const auto key = keys.Take();
        if (key) taken.push_back(*key);
    }
}

/// All bytes in pieces of this length, a moment apart.
std::vector<int> KeysOf(std::string_view bytes, std::size_t piece, Gaps gaps) {
    TerminalKeys keys(gaps);
    TerminalKeys::Time now{0};
    std::vector<int> taken;
    while (!bytes.empty()) {
        const std::string_view part = bytes.substr(0, piece);
        bytes.remove_prefix(part.size());
        keys.Feed(part, now);
        now += TerminalKeys::Time{1};
        TakeAll(keys, taken);
    }
    keys.Settle(now + TerminalKeys::sequence_time);
    Check(!keys.Deadline());
    keys.Finish();
    TakeAll(keys, taken);
    return taken;
}

}  // namespace
}  // namespace tamlo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    constexpr std::size_t soon = 1000;  // in microseconds, a byte each: far below sequence_time
    const std::string_view text = TextOf(bytes, size < soon ? size : soon);
    for (const Gaps gaps : {Gaps::kept, Gaps::lost}) {
        const std::vector<int> whole = KeysOf(text, text.size(), gaps);
        Check(whole.size() <= 2 * text.size());
        for (const int key : whole) Check(key >= 1 && key <= 255);
        Check(KeysOf(text, 1, gaps) == whole && KeysOf(text, 3, gaps) == whole);
    }
    return 0;
}
