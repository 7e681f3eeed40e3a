// The folder of the player's files.
#pragma once

#include <string>

#include "services/files.h"

namespace tamlo {

struct DataFolder {
    std::string path;
    bool exists = false;  ///< if not, it has to be made (Files::MakeFolder)
};

/// The folder "tolvane" in the user's Documents folder, with its name as written there. The current
/// directory if `documents` is empty, which means that the user has no such folder.
DataFolder FindDataFolder(Files& files, const std::string& documents);

}  // namespace tamlo
