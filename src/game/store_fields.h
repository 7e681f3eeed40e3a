// The fields of the player's files.
#pragma once

#include <string>

namespace tamlo {

struct StoreFields {
    std::string datapath;  ///< full path of the data folder, without a trailing separator
    int nowrite = 0;       ///< 1 after a file could not be written, 2 after the player was told
    int noread = 0;        ///< the same for a file that exists but could not be read
    int badsave = 0;       ///< 1 while a saved game that could not be decoded is still in place
};

}  // namespace tamlo
