// Counting the text fields in a file's bytes, for the wave-file check.
#pragma once

#include <cstddef>
#include <string_view>

namespace tamlo {

struct TextFields {
    std::size_t count = 0;        ///< fields read, at least 1: an empty file has one empty field
    std::size_t last_length = 0;  ///< bytes in the last of them, without its quotes
};

/// Reads `bytes` as comma- and line-delimited text to its end, in one pass. Byte 26 ends the text
/// wherever it occurs, even inside quotes. Any bytes are accepted.
TextFields CountTextFields(std::string_view bytes);

}  // namespace tamlo
