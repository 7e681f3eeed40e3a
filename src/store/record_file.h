// The bytes of the record: the time of the best game, the player's name, the date.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "services/date.h"

namespace tamlo {

struct Record {
    int hours = 0;
    int minutes = 0;
    double seconds = 0;
    std::string name;  ///< UTF-8; stored in Windows-1252 codes
    Date date;

    /// Whether the time is strictly shorter; an equal time is not a new record.
    bool ShorterThan(const Record& other) const;
};

std::string EncodeRecord(const Record& record);

/// Nothing if the bytes can't be decoded. What follows the record is ignored.
std::optional<Record> DecodeRecord(std::string_view bytes);

/// The new content of the record file: the new bytes written over the old ones from the first byte.
/// If the old content was longer, its rest remains.
std::string OverwrittenBy(std::string_view old_bytes, std::string_view new_bytes);

}  // namespace tamlo
