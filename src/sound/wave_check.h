// Whether a wave file is the one that the game was made with.
#pragma once

#include <string>

namespace tamlo {

struct Effect;
class Files;

/// Compares the file of an effect in a folder with the effect's fingerprint. False if it is
/// missing.
bool IsUnaltered(Files& files, const std::string& folder, const Effect& effect);

}  // namespace tamlo
