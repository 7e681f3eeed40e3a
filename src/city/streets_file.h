// City streets files (147 names, one per field), and the check of a city's name for its file's
// name.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "game/city_fields.h"

namespace tamlo {

inline constexpr int names_in_a_city = most_roads + most_streets;
inline constexpr std::size_t longest_street_name = 200;  ///< characters, as spoken at every corner
inline constexpr std::string_view streets_prefix = "tamlostreets";
inline constexpr std::string_view streets_ending = ".txt";

/// The names in a streets file's content (UTF-8 or Windows-1252), at most 147, each at most 200
/// characters. A field ends at a comma or a line end (CR LF, CR or LF), blanks before it are
/// skipped, a field in double quotes may contain commas, and an empty line is an empty name.
std::vector<std::string> ReadStreetNames(std::string_view bytes);

/// A field as it stands in the file, in full length.
struct StreetField {
    std::string name;
    int line = 1;  ///< where it begins
};

/// All fields of a streets file's content, including those after the last name.
std::vector<StreetField> ReadStreetFields(std::string_view bytes);

/// A file's content with these names, from which the same names are read again. Nothing if that is
/// impossible: a name begins with a blank or a double quote, or contains a line end or the byte 26.
std::optional<std::string> WriteStreetNames(const std::vector<std::string>& names);

/// File name of a city's streets, or of the default ones for "original".
std::string StreetsFileName(std::string_view city);

/// Why a typed name (UTF-8) can't be part of a file's name on every file system, as a sentence: it
/// is empty, contains one of / \ : * ? " < > | or a control character, or makes a file name of more
/// than 255 bytes. Empty if it can. Blanks and dots at its ends are allowed: they are never at the
/// ends of the file's name.
std::string_view WhyNotCityName(std::string_view city);

}  // namespace tamlo
