// Any bytes as the record: refused, or one that is stored over itself and read back the same.
#include <string>

#include "fuzzing.h"
#include "store/record_file.h"
#include "text/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    const std::string_view old = TextOf(bytes, size);
    const auto record = DecodeRecord(old);
    if (!record) return 0;
    Check(IsUtf8(record->name) && CountCharacters(record->name) <= size);
    Check(!record->ShorterThan(*record));

    const std::string stored = EncodeRecord(*record);
    const std::string over = OverwrittenBy(old, stored);
    Check(over.starts_with(stored) && over.size() >= old.size());
    const auto again = DecodeRecord(over);
    Check(again && again->name == record->name && EncodeRecord(*again) == stored);
    return 0;
}
