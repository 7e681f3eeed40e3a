// The fields of the player's files.
#pragma once

#include <string>

namespace tamlo {

struct StoreFields {
    std::string datapath;  // full path of the data folder, without a trailing separator
    int nowrite = 0;       // 1 once a file could not be written while starting
    int badsave = 0;       // 1 while a saved game that can't be understood is still in its place
};

}  // namespace tamlo
