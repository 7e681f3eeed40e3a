// The fields of the player's files.
#pragma once

#include <string>

namespace tamlo {

struct StoreFields {
    std::string datapath;  // full path of the data folder, without a trailing separator
    int nowrite = 0;       // 1 once a file could not be written, 2 when the player has been told
    int noread = 0;        // the same for a file that is there but could not be read
    int badsave = 0;       // 1 while a saved game that can't be understood is still in its place
};

}  // namespace tamlo
