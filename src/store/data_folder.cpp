#include "store/data_folder.h"

namespace tamlo {

DataFolder FindDataFolder(Files& files, const std::string& documents) {
    if (documents.empty()) return {files.CurrentDirectory(), true};
    const std::string folder = documents + "/tolvane";
    const std::string found = files.FindFolder(folder);
    return found.empty() ? DataFolder{folder, false} : DataFolder{found, true};
}

}  // namespace tamlo
