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

/// The Windows-1252 code of the first character of a UTF-8 text; nothing if it has none.
std::optional<int> ToWindows1252(std::string_view utf8);

/// The code of the small (capital) letter for that of a capital (small) one; any other code as it
/// is.
int LowerCase1252(int code);
int UpperCase1252(int code);

/// A text file's content as UTF-8: unchanged if it is valid (without a byte-order mark), else read
/// as Windows-1252.
std::string DecodeText(std::string_view bytes);

}  // namespace tamlo
