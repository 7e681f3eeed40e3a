// Any bytes as a city streets file: names that can be spoken, within their limits.
#include <string>
#include <vector>

#include "city/streets_file.h"
#include "fuzzing.h"
#include "text/utf8.h"

namespace {

bool IsPlain(const std::string& name) {
    return name.find_first_of("\",\r\n\x1A") == std::string::npos && !name.starts_with(' ');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    const std::vector<std::string> names = ReadStreetNames(TextOf(bytes, size));
    Check(names.size() <= static_cast<std::size_t>(names_in_a_city) && names.size() <= size);
    bool plain = true;
    std::string rewritten;
    for (const std::string& name : names) {
        Check(IsUtf8(name) && CountCharacters(name) <= 200);
        plain = plain && IsPlain(name);
        rewritten += name + "\r\n";
    }
    // Written as the game writes its own file, the names are read back.
    const bool marked = rewritten.starts_with("\xEF\xBB\xBF");
    if (plain && !marked) Check(ReadStreetNames(rewritten) == names);

    const std::string city(TextOf(bytes, size));
    if (WhyNotCityName(city).empty()) {
        Check(city.find_first_of(std::string_view("/\\\0", 3)) == std::string::npos);
        Check(StreetsFileName(city).size() <= 255);
    }
    return 0;
}
