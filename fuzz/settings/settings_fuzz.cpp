// Any bytes as the configuration file: settings in their ranges, that are stored and read back.
#include <string>

#include "fuzzing.h"
#include "store/settings_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    for (const int voices : {1, 10}) {
        const Settings read = ParseSettings(TextOf(bytes, size), voices);
        Check(read.nv >= 0 && read.nv < voices);
        Check(read.vv >= 0 && read.vv <= 100);
        Check(read.wavol >= -3500 && read.wavol <= 0);
        Check(read.gnd == 1 || read.gnd == 2);
        const std::string stored = FormatSettings(read);
        Check(FormatSettings(ParseSettings(stored, voices)) == stored);
    }
    return 0;
}
