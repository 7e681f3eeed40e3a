// The folder of the player's files.
#pragma once

#include <string>

#include "services/files.h"

namespace tamlo {

struct DataFolder {
    std::string path;
    bool exists = false;  ///< else it has to be made: Files::MakeFolder
};

/// The folder "tolvane" in the user's Documents folder, written as it stands there. The current
/// directory if `documents` is empty: then the user has no such folder.
DataFolder FindDataFolder(Files& files, const std::string& documents);

}  // namespace tamlo
