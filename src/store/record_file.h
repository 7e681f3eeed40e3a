// The bytes of the record: the best game's time, its player's name, its date.
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
    std::string name;  // UTF-8; stored in Windows-1252 codes
    Date date;

    /// Strictly shorter; an equal time is not a new record.
    bool ShorterThan(const Record& other) const;
};

std::string EncodeRecord(const Record& record);

/// Nothing if the bytes can't be understood. What follows the record is not looked at.
std::optional<Record> DecodeRecord(std::string_view bytes);

/// The new content of the record file: written from its first byte over the old one, whose longer
/// rest stays behind it.
std::string OverwrittenBy(std::string_view old_bytes, std::string_view new_bytes);

}  // namespace tamlo
