// Text from the player's files and from keys: UTF-8 in the program, Windows-1252 in records, key
// codes, and streets files that are not UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamlo {

/// The character with this code in Windows-1252, as UTF-8. Codes without a character there give
/// the control character of the same number; codes outside 0 to 255 give the empty text.
std::string FromWindows1252(int code);

/// The code of a character in Windows-1252, from the front of a UTF-8 text; nothing if it has none.
std::optional<int> ToWindows1252(std::string_view utf8);

/// Code of the small (capital) letter for a capital (small) letter of Windows-1252, else the code.
int LowerCase1252(int code);
int UpperCase1252(int code);

/// A text file's content as UTF-8: as it is if valid (a byte-order mark skipped), else read as
/// Windows-1252.
std::string DecodeText(std::string_view bytes);

}  // namespace tamlo
