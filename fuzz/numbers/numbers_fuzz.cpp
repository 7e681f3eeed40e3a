// Any numbers as money, counts and times: in plain digits, and rounded to what is nearest.
#include <charconv>
#include <cmath>
#include <string>

#include "fuzzing.h"
#include "text/clock_text.h"
#include "text/number_text.h"

namespace tamlo {
namespace {

bool OnlyOf(const std::string& text, std::string_view characters) {
    return text.find_first_not_of(characters) == std::string::npos;
}

void CheckPlain(double number) {
    const std::string text = Plain(number);
    Check(OnlyOf(text, "-.0123456789"));
    double back = 0;
    std::from_chars(text.data(), text.data() + text.size(), back);
    Check(back == (std::isfinite(number) ? number : 0));
}

void CheckRounded(double number, int decimals) {
    const double rounded = Rounded(number, decimals);
    Check(Rounded(rounded, decimals) == rounded);
    if (!std::isfinite(number)) return Check(rounded == 0);
    // Half a unit, and what numbers of this size can't tell apart.
    const double near = 0.5 * std::pow(10, -decimals) + std::abs(number) * 1e-15;
    Check(std::abs(rounded - number) <= near * (1 + 1e-9));
}

void CheckTimes(double seconds) {
    const ClockParts parts = SplitTime(seconds);
    if (seconds >= 0) {
        Check(parts.hours >= 0 && parts.minutes >= 0 && parts.minutes < 60);
        Check(parts.seconds >= 0 && parts.seconds < 60);
    }
    Check(OnlyOf(GameTime(seconds), "0123456789:"));
    Check(TripTime(seconds).find(" minute") != std::string::npos);
}

}  // namespace
}  // namespace tamlo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    std::string_view input = TextOf(bytes, size);
    while (!input.empty()) {
        const auto number = TakeValue<double>(input);
        CheckPlain(number);
        for (const int decimals : {0, 2, 15}) CheckRounded(number, decimals);
        CheckTimes(number);
        Check(OnlyOf(MoneyPicture(number), "-,.0123456789"));
        Check(OnlyOf(CountPicture(number), "-,0123456789"));
        const std::string money = MoneyText(number);
        Check(money.starts_with(" $") && OnlyOf(money.substr(2), "-,.0123456789"));
        Check(money.size() - money.find('.') != 2);  // " $17.5" would be half a sum
    }
    return 0;
}
