// Where the player's Documents folder is, and where reports about the program go.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

/// The Documents folder that the text of a user-dirs file names (XDG_DOCUMENTS_DIR, in double
/// quotes or bare, absolute or beginning with $HOME); its last valid line wins. Empty if none.
std::string DocumentsInUserDirs(std::string_view text, const std::string& home);

/// Documents folder of a user with this home and configuration folder (both absolute, or empty
/// for none): the one that user-dirs.dirs names, else Documents at home, else the home itself;
/// the first that is there or can be created. Empty without any.
std::string DocumentsFolder(const std::string& home, const std::string& configuration);

/// The same for the user of this process, from HOME, XDG_CONFIG_HOME and the password entry.
std::string DocumentsFolder();

/// The home of this process's user, from HOME or the password entry; empty if there is none.
std::string HomeFolder();

/// The folder for reports about the program, made when missing: "tamlo" in XDG_STATE_HOME, or else
/// in ~/.local/state. Empty if there is none and none can be made.
std::string StateFolder();

}  // namespace tamlo
